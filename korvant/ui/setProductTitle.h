// The title of a window with the product's name in front, as every dialog of the module shows it.
#pragma once

class CWnd;

// "Blokk kiválasztása" becomes "Korvant - Blokk kiválasztása". Call once, in OnInitDialog.
void setProductTitle(CWnd& window);
