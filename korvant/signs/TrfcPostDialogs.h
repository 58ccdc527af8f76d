// The doors from the entities to their edit dialogs, which lie in the part above and are
// supplied by it. A dialog changes the clone it is given; the caller takes the clone's content on OK.
#pragma once

class TrfcPost;
class TrfcBlockEnt;

enum TrfcPostPage {
    kPostPageGeneral = 0,
    kPostPageTables = 1,
    kPostPageFirstLamp = 2, // of lamp chain 0; the others follow
};
// True when the dialog was closed with OK.
bool editPostProperties(TrfcPost& clone, int page);
bool editBlockEntProperties(TrfcBlockEnt& clone);
