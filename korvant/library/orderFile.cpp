#include "orderFile.h"

#include "WinFiles.h"
#include "WinTextFile.h"
#include "xmlParser.h"

namespace {
std::wstring textOf(const ACHAR* text) { return text != nullptr ? text : L""; }

std::wstring escaped(const ACHAR* text) {
    std::wstring result;
    for (const wchar_t c : textOf(text))
        switch (c) {
        case L'&': result += L"&amp;"; break;
        case L'<': result += L"&lt;"; break;
        case L'>': result += L"&gt;"; break;
        case L'"': result += L"&quot;"; break;
        default: result += c;
        }
    return result;
}

std::wstring folderOf(const std::wstring& mask) {
    static const std::wstring kPattern = L"*.dwg";
    std::wstring folder = mask;
    const std::size_t at = folder.rfind(kPattern);
    if (at != std::wstring::npos)
        folder.erase(at, kPattern.size());
    return folder;
}

XmlDocNode findLibrary(const XmlDocNode& root, const std::wstring& folder) {
    const int count = root.childCount(L"Library");
    for (int i = 0; i < count; ++i) {
        const XmlDocNode library = root.childByNameAt(L"Library", i);
        if (textOf(library.attributeValueAt(0)) == folder)
            return library;
    }
    return XmlDocNode();
}

bool swapNames(const XmlDocNode& library, int row, int distance) {
    const int count = library.childCount(L"Block");
    const int other = row - distance;
    if (row < 0 || row >= count || other < 0 || other >= count)
        return false;
    XmlDocNode first = library.childByNameAt(L"Block", row).childByName(L"Name");
    XmlDocNode second = library.childByNameAt(L"Block", other).childByName(L"Name");
    if (first.isEmpty() || second.isEmpty())
        return false;
    const std::wstring kept = textOf(first.textAt(0));
    first.setTextAt(0, textOf(second.textAt(0)).c_str());
    second.setTextAt(0, kept.c_str());
    return true;
}

void writeLibrary(WinTextFile& file, const XmlDocNode& library) {
    file.puts(L"  <Library");
    for (int i = 0; library.attributeValueAt(i) != nullptr; ++i)
        file.puts(L" " + textOf(library.attributeNameAt(i)) + L"=\"" + escaped(library.attributeValueAt(i)) + L"\"");
    file.puts(L">\n");
    const int count = library.childCount(L"Block");
    for (int i = 0; i < count; ++i) {
        const XmlDocNode name = library.childByNameAt(L"Block", i).childByName(L"Name");
        file.puts(L"    <Block><Name>" + escaped(name.textAt(0)) + L"</Name></Block>\n");
    }
    file.puts(L"  </Library>\n");
}

// In the single-byte code page, which is how the reader takes a file that is not 16-bit text.
bool writeOrderFile(const std::wstring& path, const XmlDocNode& root) {
    WinTextFile file;
    if (!file.open(path.c_str(), L"w"))
        return false;
    file.puts(L"<Libraries>\n");
    const int count = root.childCount(L"Library");
    for (int i = 0; i < count; ++i)
        writeLibrary(file, root.childByNameAt(L"Library", i));
    file.puts(L"</Libraries>\n");
    return file.close();
}
} // namespace

bool swapInOrderFile(const std::wstring& orderFile, const std::wstring& folderMask, int row, int distance) {
    if (GetFileAttributesW(orderFile.c_str()) == INVALID_FILE_ATTRIBUTES)
        return false;
    const XmlDocNode root = openDocument(orderFile, L"Libraries");
    const XmlDocNode library = findLibrary(root, folderOf(folderMask));
    return !library.isEmpty() && swapNames(library, row, distance) && writeOrderFile(orderFile, root);
}
