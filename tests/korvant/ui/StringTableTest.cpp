#include "AfxApp.h"
#include "DialogUser.h"
#include "Resource.h"

#include <gtest/gtest.h>

TEST(StringTable, holds_the_texts_of_the_settings_files) {
    DialogUser user;
    EXPECT_EQ(AfxResourceString(103), L"Az alapértelmezett beállítások mentése sikeres!");
    EXPECT_EQ(AfxResourceString(104), L"Az alapértelmezett beállítások betöltése sikeres!");
    EXPECT_EQ(AfxResourceString(105), L"A megadott INI fájl elérési útja hibás, vagy írásvédett!");
    EXPECT_EQ(AfxResourceString(119), L"Hiba történt az alkalamazás beállítások betöltésekor.\n\n(A '%s' fájl sérült, vagy nem található)");
    EXPECT_EQ(AfxResourceString(120), L"Az alapértelmezett beállítások betöltése sikertelen. \n\n Kérjük, adja meg az INI fájl elérési útját!");
}

TEST(StringTable, holds_the_prompts_of_placement) {
    DialogUser user;
    EXPECT_EQ(AfxResourceString(109), L"Adja meg a beillesztési pontot (A):\n");
    EXPECT_EQ(AfxResourceString(110), L"Adja meg az oszlop elforgatását (B):\n");
    EXPECT_EQ(AfxResourceString(111), L"Adja meg a táblák beillesztési pontját (D):\n");
    EXPECT_EQ(AfxResourceString(132), L"Adja meg a beillesztési pontot:\n");
    EXPECT_EQ(AfxResourceString(133), L"Adja meg a blokk elforgatását <%f>:\n");
}

TEST(StringTable, holds_the_titles_of_property_pages) {
    DialogUser user;
    EXPECT_EQ(AfxResourceString(106), L"Általános");
    EXPECT_EQ(AfxResourceString(107), L"Lámpa");
    EXPECT_EQ(AfxResourceString(108), L"Táblák");
    EXPECT_EQ(AfxResourceString(143), L"Burkolati jel");
    EXPECT_EQ(AfxResourceString(145), L"Gyalogátkelőhely");
    EXPECT_EQ(AfxResourceString(148), L"Oszlop 1");
    EXPECT_EQ(AfxResourceString(149), L"Oszlop 2");
    EXPECT_EQ(AfxResourceString(130), L"kiegészítő");
}

TEST(DialogTemplates, stand_under_their_numbers) {
    DialogUser user;
    for (const UINT id : {103u, 144u, 207u, 210u, 211u, 220u, 221u, 222u, 224u, 317u, 341u, 343u})
        EXPECT_TRUE(AfxHasDialogTemplate(id)) << id;
}
