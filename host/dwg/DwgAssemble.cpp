// The outer form of the file that is written, in the order of present programs' AC1015 files: header,
// auxiliary header, preview, header variables, classes, objects, object map, second header, template.
#include "DwgWriter.h"

#include "DwgCrc.h"

#include <cstring>

namespace {
// Open Design description of DWG, chapters "File header" and "AuxHeader"; numbers as observed in drawings
// of present programs.
constexpr unsigned kSections = kDwgSectionCount;
constexpr unsigned kHeaderMask = 0x8461; // of six locators
constexpr std::size_t kHeaderSize = 0x19 + 9 * kSections + 2 + sizeof(DwgSentinel);
constexpr unsigned kMaintenance = 15;
constexpr unsigned kDwgVersion = 0x17; // 23: AC1015
constexpr std::size_t kAuxHeaderSize = 123;
constexpr Adesk::UInt32 kObjectsMark = 0x0DCA; // stands between classes and objects
constexpr std::size_t kMapPartLimit = 2030;     // bytes of pairs in a part of the object map

class Assembler {
public:
    explicit Assembler(const DwgFileParts& parts) : mParts(parts), mOut(parts.text) {}
    std::vector<Adesk::UInt8> run() {
        pad(kHeaderSize);
        auxHeader();
        preview();
        guarded(kDwgHeaderVars, kDwgHeaderVarsBegin, [this](DwgBitWriter& out) { mParts.vars->write(out); });
        guarded(kDwgClasses, kDwgClassesBegin, [this](DwgBitWriter& out) { dwgWriteClasses(out, *mParts.classes); });
        mOut.RL(kObjectsMark);
        mObjectsAt = place();
        mOut.bytes(mParts.objects->data(), mParts.objects->size());
        objectMap();
        secondHeader();
        templateSection();
        std::vector<Adesk::UInt8> bytes = mOut.finish();
        fileHeader(bytes);
        return bytes;
    }

private:
    std::size_t place() const { return mOut.position() / 8; }
    void pad(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            mOut.RC(0);
    }
    void begin(DwgSectionNumber number) { mSections[number].offset = static_cast<Adesk::UInt32>(place()); }
    void end(DwgSectionNumber number) { mSections[number].size = static_cast<Adesk::UInt32>(place() - mSections[number].offset); }
    void sentinel(const DwgSentinel& s) { mOut.bytes(s.bytes, sizeof s.bytes); }

    void auxHeader() {
        begin(kDwgAuxHeader);
        for (const unsigned byte : {0xFFU, 0x77U, 0x01U})
            mOut.RC(byte);
        mOut.RS(kDwgVersion);
        mOut.RS(kMaintenance);
        const Adesk::UInt32 saves = 1;
        mOut.RL(saves);
        mOut.RL(static_cast<Adesk::UInt32>(-1));
        mOut.RS(saves); // in two halves
        mOut.RS(0);
        mOut.RL(0);
        for (int i = 0; i < 2; ++i) {
            mOut.RS(kDwgVersion);
            mOut.RS(kMaintenance);
        }
        for (const unsigned number : {0x0005U, 0x0893U, 0x0005U, 0x0893U, 0x0000U, 0x0001U})
            mOut.RS(number);
        for (int i = 0; i < 5; ++i)
            mOut.RL(0);
        time((*mParts.vars)[L"TDCREATE"].real);
        time((*mParts.vars)[L"TDUPDATE"].real);
        mOut.RL(static_cast<Adesk::UInt32>((*mParts.vars)[L"HANDSEED"].handle));
        mOut.RL(0); // no educational stamp
        mOut.RS(0);
        mOut.RS(saves);
        for (int i = 0; i < 3; ++i)
            mOut.RL(0);
        mOut.RL(saves);
        pad(kAuxHeaderSize - (place() - mSections[kDwgAuxHeader].offset));
        end(kDwgAuxHeader);
    }
    void time(double date) {
        const bool sane = date >= 0.0 && date < 4.0e9;
        const double days = sane ? std::floor(date) : 0.0;
        mOut.RL(static_cast<Adesk::UInt32>(days));
        mOut.RL(sane ? static_cast<Adesk::UInt32>((date - days) * 86400000.0) : 0);
    }

    // Open Design description of DWG, chapter "Preview": eighty empty bytes as a head, then the bitmap.
    void preview() {
        constexpr std::size_t kHead = 80;
        if (mParts.preview.empty())
            return;
        mPreviewAt = static_cast<Adesk::UInt32>(place());
        const std::size_t head = place() + sizeof(DwgSentinel) + 4 + 1 + 2 * 9;
        sentinel(kDwgPreviewBegin);
        mOut.RL(static_cast<Adesk::UInt32>(1 + 2 * 9 + kHead + mParts.preview.size()));
        mOut.RC(2);
        mOut.RC(1);
        mOut.RL(static_cast<Adesk::UInt32>(head));
        mOut.RL(kHead);
        mOut.RC(2);
        mOut.RL(static_cast<Adesk::UInt32>(head + kHead));
        mOut.RL(static_cast<Adesk::UInt32>(mParts.preview.size()));
        pad(kHead);
        mOut.bytes(mParts.preview.data(), mParts.preview.size());
        sentinel(kDwgPreviewBegin.inverted());
    }

    template <class Fill> void guarded(DwgSectionNumber number, const DwgSentinel& mark, Fill fill) {
        begin(number);
        sentinel(mark);
        DwgBitWriter body(mParts.text);
        fill(body);
        const std::vector<Adesk::UInt8>& bytes = body.finish();
        DwgBitWriter sized;
        sized.RL(static_cast<Adesk::UInt32>(bytes.size()));
        sized.bytes(bytes.data(), bytes.size());
        const std::vector<Adesk::UInt8>& whole = sized.finish();
        mOut.bytes(whole.data(), whole.size());
        mOut.RS(dwgCrc(kDwgCrcSeed, whole.data(), whole.size()));
        sentinel(mark.inverted());
        end(number);
    }

    void objectMap() {
        begin(kDwgObjectMap);
        DwgBitWriter part;
        DwgMapEntry before;
        for (const DwgMapEntry& entry : *mParts.map) {
            const auto offset = static_cast<Adesk::UInt32>(mObjectsAt + entry.offset);
            part.MC(entry.handle - before.handle);
            part.MCsigned(static_cast<Adesk::Int32>(offset) - static_cast<Adesk::Int32>(before.offset));
            before = {entry.handle, offset};
            if (part.position() / 8 > kMapPartLimit - 16) {
                mapPart(part);
                before = {};
            }
        }
        if (part.position() != 0)
            mapPart(part);
        mapPart(part); // an empty one ends the map
        end(kDwgObjectMap);
    }
    void mapPart(DwgBitWriter& part) {
        DwgBitWriter sized;
        const std::vector<Adesk::UInt8>& pairs = part.finish();
        sized.bits(pairs.size() + 2, 16); // high byte first
        sized.bytes(pairs.data(), pairs.size());
        const std::vector<Adesk::UInt8>& whole = sized.finish();
        mOut.bytes(whole.data(), whole.size());
        mOut.bits(dwgCrc(kDwgCrcSeed, whole.data(), whole.size()), 16);
        part.clear();
    }

    // Open Design description of DWG, chapter "Second file header"; the order of its numbers and the
    // checksum over its size and bits as observed in the drawings.
    void secondHeader() {
        constexpr std::size_t kUnknownBytes = 8;
        const std::size_t at = place();
        DwgBitWriter body;
        body.RL(0);
        body.BL(static_cast<Adesk::Int32>(at));
        headIdentity(body);
        body.BS(static_cast<Adesk::Int32>(kMaintenance << 8U | kDwgVersion));
        body.RS(static_cast<unsigned>(mParts.text->codePage()));
        body.BS(kSections);
        for (unsigned i = 0; i < kSections; ++i) {
            const bool written = i < kDwgFreeSpace || i == kDwgAuxHeader;
            body.RC(i);
            body.BL(written ? static_cast<Adesk::Int32>(mSections[i].offset) : 0);
            body.BL(written ? static_cast<Adesk::Int32>(mSections[i].size) : 0);
        }
        handles(body);
        body.alignToByte();
        body.patchRL(0, static_cast<Adesk::UInt32>(body.position() / 8 + 2 + kUnknownBytes));
        const std::vector<Adesk::UInt8>& bytes = body.finish();
        sentinel(kDwgSecondHeaderBegin);
        mOut.bytes(bytes.data(), bytes.size());
        mOut.RS(dwgCrc(kDwgCrcSeed, bytes.data(), bytes.size()));
        pad(kUnknownBytes);
        sentinel(kDwgSecondHeaderBegin.inverted());
    }
    static void headIdentity(DwgBitWriter& out) {
        for (const char c : {'A', 'C', '1', '0', '1', '5'})
            out.RC(static_cast<unsigned>(c));
        for (const unsigned byte : {0U, 0U, 0U, 0U, 0U, kMaintenance, 1U})
            out.RC(byte);
    }
    void handles(DwgBitWriter& body) const {
        constexpr const wchar_t* kNames[] = {L"HANDSEED", L"BLOCK_CONTROL", L"LAYER_CONTROL", L"STYLE_CONTROL", L"LTYPE_CONTROL",
                                             L"VIEW_CONTROL", L"UCS_CONTROL", L"VPORT_CONTROL", L"APPID_CONTROL", L"DIMSTYLE_CONTROL",
                                             L"VX_CONTROL", L"DICTIONARY_NAMED", L"DICTIONARY_MLINESTYLE", L"DICTIONARY_GROUP"};
        body.BS(std::size(kNames));
        unsigned number = 0;
        for (const wchar_t* name : kNames) {
            const Adesk::UInt64 handle = (*mParts.vars)[name].handle;
            unsigned length = 1;
            while (length < 8 && (handle >> (8U * length)) != 0)
                ++length;
            body.RC(length);
            body.RC(number++);
            for (unsigned i = length; i > 0; --i)
                body.RC(static_cast<unsigned>(handle >> (8U * (i - 1))));
        }
    }

    void templateSection() {
        begin(kDwgTemplate);
        mOut.RS(0); // no description
        mOut.RS(static_cast<unsigned>(mParts.measurement));
        end(kDwgTemplate);
    }

    void fileHeader(std::vector<Adesk::UInt8>& bytes) const {
        DwgBitWriter head;
        headIdentity(head);
        head.RL(mPreviewAt);
        head.RC(kDwgVersion);
        head.RC(kMaintenance);
        head.RS(static_cast<unsigned>(mParts.text->codePage()));
        head.RL(kSections);
        for (unsigned i = 0; i < kSections; ++i) {
            head.RC(i);
            head.RL(mSections[i].offset);
            head.RL(mSections[i].size);
        }
        const std::vector<Adesk::UInt8> numbers = head.finish();
        head.RS(dwgCrc(0, numbers.data(), numbers.size()) ^ kHeaderMask);
        head.bytes(kDwgFileHeaderEnd.bytes, sizeof kDwgFileHeaderEnd.bytes);
        const std::vector<Adesk::UInt8>& whole = head.finish();
        std::memcpy(bytes.data(), whole.data(), std::min(whole.size(), kHeaderSize));
    }

    const DwgFileParts& mParts;
    DwgBitWriter mOut;
    DwgSection mSections[kDwgSectionCount];
    std::size_t mObjectsAt = 0;
    Adesk::UInt32 mPreviewAt = 0;
};
} // namespace

std::vector<Adesk::UInt8> dwgAssembleFile(const DwgFileParts& parts) {
    return Assembler(parts).run();
}
