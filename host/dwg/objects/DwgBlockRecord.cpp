// BLOCK_HEADER: Open Design description of DWG, chapter "BLOCK HEADER (49)", R2000 form. The first and the
// last entity are named; the others hang together by their links.
#include "DwgRecordName.h"

template <> struct DbObjectAccess::DwgFields<AcDbBlockTableRecord> {
    // Bits of the record's flags, as the interchange format numbers them.
    enum Flag { kAnonymous = 1, kHasDefinitions = 2, kIsXref = 4, kIsOverlay = 8, kUnloaded = 32 };

    static void file(DwgIn& s, AcDbBlockTableRecord& block) {
        head(s, block);
        unsigned inserts = 0;
        while (s.data().RC() != 0 && !s.failed())
            ++inserts;
        s.TV(block.mComments);
        block.mPreview = s.data().bytes(s.data().count(s.data().BL(), 8));
        AcDbObjectId external, first, last;
        s.H(5, external);
        s.H(3, block.mBlockBegin);
        if ((block.mFlags & (kIsXref | kIsOverlay)) == 0) {
            s.H(4, first);
            s.H(4, last);
            block.mEntities.removeAll();
            if (!first.isNull()) { // replaced by the whole chain when every record has been read
                block.mEntities.append(first);
                block.mEntities.append(last);
            }
        }
        s.H(3, block.mBlockEnd);
        for (unsigned i = 0; i < inserts && !s.failed(); ++i)
            s.H(); // worked out anew from the references that stand in the drawing
        s.H(5, block.mLayout);
    }

    static void file(DwgOut& s, AcDbBlockTableRecord& block) {
        const std::vector<AcDbObjectId> entities = dwgLiveIds(block.mEntities);
        settleFlags(block, entities);
        head(s, block);
        static const std::vector<AcDbObjectId> kNone;
        const auto found = s.context().references.find(block.objectId());
        const std::vector<AcDbObjectId>& inserts = found == s.context().references.end() ? kNone : found->second;
        for (std::size_t i = 0; i < inserts.size(); ++i)
            s.RC(1);
        s.RC(0);
        s.TV(block.mComments);
        s.BL(block.mPreview.size());
        s.data().bytes(block.mPreview.data(), block.mPreview.size());
        s.H(5, AcDbObjectId());
        s.H(3, block.mBlockBegin);
        if ((block.mFlags & (kIsXref | kIsOverlay)) == 0) {
            s.H(4, entities.empty() ? AcDbObjectId() : entities.front());
            s.H(4, entities.empty() ? AcDbObjectId() : entities.back());
        }
        s.H(3, block.mBlockEnd);
        for (const AcDbObjectId insert : inserts)
            s.H(4, insert);
        s.H(5, block.mLayout);
    }

    // A block made by the program may not have noted what the file must tell about it.
    static void settleFlags(AcDbBlockTableRecord& block, const std::vector<AcDbObjectId>& entities) {
        const std::wstring& name = DbObjectAccess::name(block);
        if (name.size() > 1 && name[0] == L'*' && block.mLayout.isNull())
            block.mFlags |= kAnonymous;
        if (!block.mLayout.isNull())
            return; // a layout asks for no attributes (observed in the drawings)
        block.mFlags &= static_cast<Adesk::UInt16>(~kHasDefinitions);
        for (const AcDbObjectId id : entities)
            if (AcDbAttributeDefinition::cast(DbObjectAccess::peek(id)) != nullptr) {
                block.mFlags |= kHasDefinitions;
                break;
            }
    }

    // "*D3" stands as "*D" in the record, with its number in the begin marker (observed in the
    // drawings); the reader puts the whole name back.
    static std::wstring withoutNumber(std::wstring name) {
        if (!name.empty() && name[0] == L'*')
            while (name.size() > 2 && name.back() >= L'0' && name.back() <= L'9')
                name.pop_back();
        return name;
    }
    template <class Stream> static void head(Stream& s, AcDbBlockTableRecord& block) {
        DwgRecordName name;
        std::wstring filed = withoutNumber(DbObjectAccess::name(block));
        name.file(s, filed);
        if constexpr (Stream::kReading)
            DbObjectAccess::name(block) = filed;
        unsigned flags = block.mFlags;
        flag(s, flags, kAnonymous);
        flag(s, flags, kHasDefinitions);
        flag(s, flags, kIsXref);
        flag(s, flags, kIsOverlay);
        flag(s, flags, kUnloaded);
        block.mFlags = static_cast<Adesk::UInt16>(flags);
        s.BD3(block.mOrigin);
        s.TV(block.mXrefPath);
    }
    template <class Stream> static void flag(Stream& s, unsigned& flags, Flag which) {
        bool is = (flags & which) != 0;
        s.B(is);
        flags = is ? flags | which : flags & ~static_cast<unsigned>(which);
    }
};
extern const DwgClassRow kDwgBlockRecord = dwgClassRow<AcDbBlockTableRecord>(0x31);
