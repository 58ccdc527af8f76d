// Layer dwg.
