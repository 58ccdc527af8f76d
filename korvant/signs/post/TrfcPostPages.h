// The pages of a post's property dialog.
#pragma once

enum TrfcPostPage {
    kPostPageGeneral = 0,
    kPostPageTables = 1,
    kPostPageFirstLamp = 2, // of lamp chain 0; the others follow
};
