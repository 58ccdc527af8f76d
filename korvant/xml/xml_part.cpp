// Part xml.
