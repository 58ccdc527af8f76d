// Layer db.
