// Part app.
