// DICTIONARY and the dictionary with a default entry: Open Design description of DWG, chapters "DICTIONARY
// (42)" and "DICTIONARYWDFLT", R2000 form.
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbDictionary> {
    static void file(DwgIn& s, AcDbDictionary& dictionary) {
        const std::size_t count = s.handles().count(s.data().BL(), 8);
        s.enumBS(dictionary.mMergeStyle, AcDb::kDrcUnmangleName);
        s.RC(dictionary.mHard);
        std::vector<std::wstring> names(count);
        for (std::wstring& name : names)
            s.TV(name);
        for (const std::wstring& name : names) {
            const AcDbObjectId id = s.H();
            if (!id.isNull())
                dictionary.mEntries.emplace(name, id);
        }
    }
    static void file(DwgOut& s, AcDbDictionary& dictionary) {
        std::vector<std::pair<const std::wstring*, AcDbObjectId>> live;
        for (const auto& [name, id] : dictionary.mEntries)
            if (id.isValid() && !id.isErased())
                live.emplace_back(&name, id);
        s.BL(live.size());
        s.enumBS(dictionary.mMergeStyle, AcDb::kDrcUnmangleName);
        s.RC(dictionary.mHard);
        for (const auto& entry : live)
            s.TV(*entry.first);
        for (const auto& entry : live)
            s.H(dictionary.mHard ? 3 : 2, entry.second);
    }
};
extern const DwgClassRow kDwgDictionary = dwgClassRow<AcDbDictionary>(0x2A);

template <> struct DbObjectAccess::DwgFields<AcDbDictionaryWithDefault> {
    template <class Stream> static void file(Stream& s, AcDbDictionaryWithDefault& dictionary) {
        DwgFields<AcDbDictionary>::file(s, dictionary);
        s.H(5, dictionary.mDefault);
    }
};
extern const DwgClassRow kDwgDictionaryWithDefault = dwgClassRow<AcDbDictionaryWithDefault>(0, L"ACDBDICTIONARYWDFLT");
