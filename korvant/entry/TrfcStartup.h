// The settings files at start, with the windows that tell what is wrong with them.
#pragma once

// Hands the module's dialog templates and texts to the host.
void registerModuleResources();
// Both tell the user what failed; false refuses the module.
bool loadSettingsAtStart();
// Asks for another file until one loads or the user gives up; a changed path is saved at once.
bool loadDefaultsAtStart();
