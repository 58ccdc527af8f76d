// Takes the objects of the drawing to their next state, by the choices of the state change data.
#pragma once

// Asks for a selection first where the data say so; without one nothing changes. Questions before a
// deletion are the objects' own.
void applyStateChange();
