// Part ui.
