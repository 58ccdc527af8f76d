// Part signs.
