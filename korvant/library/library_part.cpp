// Part library.
