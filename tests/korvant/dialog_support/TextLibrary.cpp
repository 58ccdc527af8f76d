#include "TextLibrary.h"

#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcPath.h"
#include "AcUtText.h"
#include "DbObjectAccess.h"
#include "TestSupport.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

namespace {
// What each database was read from, so that saving one elsewhere writes the same drawing.
std::map<const AcDbDatabase*, std::string>& contents() {
    static std::map<const AcDbDatabase*, std::string> map;
    return map;
}

bool readText(const std::wstring& hostPath, std::string& text) {
    std::ifstream file(acFileSystemPath(hostPath), std::ios::binary);
    std::ostringstream all;
    all << file.rdbuf();
    text = all.str();
    return file.is_open();
}

void addToModelSpace(AcDbDatabase& db, AcDbEntity* entity) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
    AcDbObjectId id;
    if (space && space->appendAcDbEntity(id, entity) == Acad::eOk)
        entity->close();
    else
        delete entity;
}

void addBox(AcDbDatabase& db, std::istream& words) {
    double width = 0.0, height = 0.0;
    words >> width >> height;
    auto* const box = new AcDbPolyline(4);
    const AcGePoint2d corners[] = {{-width / 2, 0.0}, {width / 2, 0.0}, {width / 2, height}, {-width / 2, height}};
    for (unsigned int i = 0; i < 4; ++i)
        box->addVertexAt(i, corners[i]);
    box->setClosed(true);
    addToModelSpace(db, box);
}

void addDisk(AcDbDatabase& db, std::istream& words) {
    double radius = 0.0;
    words >> radius;
    addToModelSpace(db, new AcDbCircle(AcGePoint3d(0.0, radius, 0.0), AcGeVector3d::kZAxis, radius));
}

void addFill(AcDbDatabase& db, std::istream& words, int color) {
    AcGePoint2dArray corners;
    for (AcGePoint2d corner; words >> corner.x >> corner.y;)
        corners.append(corner);
    auto* const fill = new AcDbHatch;
    fill->setSolid();
    fill->appendLoop(AcDbHatch::kExternal, corners);
    fill->setColorIndex(static_cast<Adesk::UInt16>(color));
    addToModelSpace(db, fill);
}

void addAttribute(AcDbDatabase& db, std::istream& words, bool multiline) {
    std::string tag, value;
    words >> tag >> value;
    auto* const definition = new AcDbAttributeDefinition;
    definition->setTag(acFromUtf8(tag).c_str());
    definition->setTextString(acFromUtf8(value).c_str());
    definition->setHeight(0.1);
    if (multiline)
        definition->convertIntoMTextAttributeDefinition();
    addToModelSpace(db, definition);
}

void addShape(AcDbDatabase& db, const std::string& line) {
    std::istringstream words(line);
    std::string kind;
    words >> kind;
    if (kind == "box")
        addBox(db, words);
    else if (kind == "disk")
        addDisk(db, words);
    else if (kind == "attdef" || kind == "mattdef")
        addAttribute(db, words, kind == "mattdef");
    else if (int color = 0; kind == "fill" && words >> color)
        addFill(db, words, color);
}

Acad::ErrorStatus readDrawing(AcDbDatabase& db, const ACHAR* path, std::wstring& error) {
    std::string text;
    if (!readText(path, text)) {
        error = L"no such file";
        return Acad::eFileNotFound;
    }
    if (text.starts_with("junk")) {
        error = L"no drawing";
        return Acad::eFilerError;
    }
    DbObjectAccess::finishLoading(db);
    contents()[&db] = text;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        addShape(db, line);
    return Acad::eOk;
}

Acad::ErrorStatus writeDrawing(AcDbDatabase& db, const ACHAR* path, std::wstring& error) {
    std::ofstream file(acFileSystemPath(path), std::ios::binary);
    file << contents()[&db];
    file.close();
    if (!file)
        error = L"cannot be written";
    return file ? Acad::eOk : Acad::eFileAccessErr;
}

void put32(std::vector<Adesk::UInt8>& bytes, unsigned value) {
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<Adesk::UInt8>(value >> shift));
}

// Header, no palette, 32 bits a pixel.
std::vector<Adesk::UInt8> plainDib(int width, int height, unsigned rgb, unsigned sides) {
    std::vector<Adesk::UInt8> dib;
    for (const unsigned field : {40u, static_cast<unsigned>(width), static_cast<unsigned>(height), (32u << 16) | 1u, 0u, 0u, 0u, 0u, 0u, 0u})
        put32(dib, field);
    for (int i = 0; i < width * height; ++i) {
        const int x = i % width;
        put32(dib, x < width / 5 || x >= width - width / 5 ? sides : rgb);
    }
    return dib;
}

bool readPreview(const ACHAR* path, std::vector<Adesk::UInt8>& dib) {
    std::string text;
    if (!readText(path, text))
        return false;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string kind;
        int width = 0, height = 0;
        unsigned rgb = 0;
        if (words >> kind >> width >> height >> std::hex >> rgb && kind == "preview") {
            unsigned sides = rgb;
            if (words >> kind && kind == "sides")
                words >> sides;
            dib = plainDib(width, height, rgb, sides);
            return true;
        }
    }
    return false;
}
} // namespace

TextLibrary::TextLibrary() : mRoot(testTempDir()) {
    while (mRoot.ends_with(L'\\'))
        mRoot.pop_back();
    acdbSetFileCodec({&readDrawing, &writeDrawing, &readPreview});
}

TextLibrary::~TextLibrary() {
    acdbSetFileCodec({});
    contents().clear();
}

void TextLibrary::addFolder(const std::wstring& relative) const {
    std::filesystem::create_directories(acFileSystemPath(path(relative)));
}

void TextLibrary::add(const std::wstring& relative, const std::string& content) const {
    const std::size_t separator = relative.rfind(L'\\');
    if (separator != std::wstring::npos)
        addFolder(relative.substr(0, separator));
    const bool isXml = relative.ends_with(L".xml"); // kept in the single-byte code page
    std::ofstream(acFileSystemPath(path(relative)), std::ios::binary) << (isXml ? acToAnsi(acFromUtf8(content)) : content);
}

void TextLibrary::addBitmap(const std::wstring& relative, int width, int height, unsigned rgb) const {
    const std::vector<Adesk::UInt8> dib = plainDib(width, height, rgb, rgb);
    std::vector<Adesk::UInt8> file = {'B', 'M'};
    put32(file, static_cast<unsigned>(14 + dib.size()));
    put32(file, 0);
    put32(file, 14 + 40);
    file.insert(file.end(), dib.begin(), dib.end());
    add(relative, std::string(file.begin(), file.end()));
}

std::string TextLibrary::contentOf(const std::wstring& relative) const {
    std::string text;
    readText(path(relative), text);
    return text;
}
