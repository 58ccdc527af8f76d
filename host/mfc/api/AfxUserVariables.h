// The system variables that belong to the user and not to a drawing are kept in the program's profile.
#pragma once

// Takes them from the profile and keeps there what is set from now on. Called once, before a module is loaded.
void AfxKeepUserVariables();
