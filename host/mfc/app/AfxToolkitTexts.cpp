#include "app/AfxToolkitTexts.h"

#include <cstring>

namespace {
struct Text {
    const char* english;
    const char* hungarian;
};
const Text kTexts[] = {
    {"OK", "OK"}, {"&OK", "&OK"}, {"Cancel", "Mégse"}, {"&Cancel", "&Mégse"}, {"&Yes", "&Igen"}, {"&No", "&Nem"}, {"Close", "Bezár"},
    {"&Close", "&Bezár"}, {"Open", "Megnyitás"}, {"&Open", "&Megnyitás"}, {"Save", "Mentés"}, {"&Save", "&Mentés"}, {"Help", "Súgó"},
    {"&Undo", "&Visszavonás"}, {"&Redo", "Új&ra"}, {"Cu&t", "&Kivágás"}, {"&Copy", "&Másolás"}, {"&Paste", "&Beillesztés"},
    {"Delete", "Törlés"}, {"&Delete", "&Törlés"}, {"Select All", "Összes kijelölése"}, {"Copy &Link Location", "Hivatkozás másolása"},
    {"Look in:", "Hely:"}, {"File &name:", "&Fájlnév:"}, {"Files of type:", "Fájltípus:"}, {"&Choose", "&Kiválasztás"},
    {"Directory:", "Mappa:"}, {"Find Directory", "Mappa keresése"}, {"Folder", "Mappa"}, {"File", "Fájl"}, {"Drive", "Meghajtó"},
    {"Back", "Vissza"}, {"Forward", "Előre"}, {"Parent Directory", "Szülőmappa"}, {"Create New Folder", "Új mappa"},
    {"&New Folder", "Ú&j mappa"}, {"New Folder", "Új mappa"}, {"List View", "Lista"}, {"Detail View", "Részletek"},
    {"&Rename", "Á&tnevezés"}, {"Show &hidden files", "&Rejtett fájlok"}, {"Go back", "Vissza"}, {"Go forward", "Előre"},
    {"Go to the parent directory", "A szülőmappába"}, {"Create a New Folder", "Új mappa létrehozása"}, {"Files", "Fájlok"},
    {"Change to list view mode", "Lista nézet"}, {"Change to detail view mode", "Részletes nézet"}, {"Sidebar", "Helyek"},
    {"List of places and bookmarks", "Helyek és könyvjelzők"}, {"All Files (*)", "Minden fájl (*)"}, {"Recent Places", "Legutóbbi helyek"},
    {"Remove", "Eltávolítás"}, {"My Computer", "Számítógép"}, {"Computer", "Számítógép"}, {"Name", "Név"}, {"Size", "Méret"},
    {"Type", "Típus"}, {"Kind", "Típus"}, {"Date Modified", "Módosítva"}, {"%1 File", "%1 fájl"}, {"Unknown", "Ismeretlen"},
    {"%1 bytes", "%1 bájt"}, {"%1 byte(s)", "%1 bájt"}, {"%1 KB", "%1 KB"}, {"%1 MB", "%1 MB"}, {"%1 GB", "%1 GB"},
    {"%1 already exists.\nDo you want to replace it?", "A(z) %1 már létezik.\nLecseréli?"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.", "%1\nA fájl nem található.\nEllenőrizze a fájl nevét!"},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.", "%1\nA mappa nem található.\nEllenőrizze a mappa nevét!"},
    {"Save As", "Mentés másként"}, {"&Select All", "Összes ki&jelölése"}, {"Insert Unicode control character", "Vezérlőkarakter beszúrása"},
};
} // namespace

QString AfxToolkitTexts::translate(const char*, const char* text, const char*, int) const {
    for (const Text& known : kTexts)
        if (std::strcmp(known.english, text) == 0)
            return QString::fromUtf8(known.hungarian);
    return {};
}
