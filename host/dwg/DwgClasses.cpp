// Open Design description of DWG, chapter "CLASSES section", R13 to R2000 form.
#include "DwgClasses.h"

namespace {
constexpr int kEntityItem = 0x1F2, kObjectItem = 0x1F3;
constexpr std::size_t kLeastClassBits = 2 + 2 + 3 * 2 + 1 + 2;
} // namespace

bool dwgReadClasses(const DwgFile& file, const DwgTextCodec& text, std::vector<DwgClassEntry>& classes, DwgError& error) {
    std::optional<DwgBitReader> section = file.guardedSection(kDwgClasses, &text, L"the class section", error);
    if (!section)
        return false;
    // What is left after the last class is at most the fill of its byte.
    while (section->left() >= 8 + kLeastClassBits) {
        DwgClassEntry entry;
        entry.number = section->BS();
        entry.proxyFlags = static_cast<Adesk::UInt16>(section->BS());
        entry.appName = section->TV();
        entry.cppName = section->TV();
        entry.dxfName = section->TV();
        entry.wasProxy = section->B();
        entry.isEntity = section->BS() == kEntityItem;
        if (section->failed())
            return error.set(Acad::eFilerError, L"The drawing file is damaged: the class section cannot be understood.");
        classes.push_back(std::move(entry));
    }
    return true;
}

void dwgWriteClasses(DwgBitWriter& out, const std::vector<DwgClassEntry>& classes) {
    for (const DwgClassEntry& entry : classes) {
        out.BS(entry.number);
        out.BS(static_cast<Adesk::Int16>(entry.proxyFlags));
        out.TV(entry.appName);
        out.TV(entry.cppName);
        out.TV(entry.dxfName);
        out.B(entry.wasProxy);
        out.BS(entry.isEntity ? kEntityItem : kObjectItem);
    }
}
