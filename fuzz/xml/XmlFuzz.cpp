// Any bytes as the text of an XML file: every handle that comes back can be walked.
#include "AcUtText.h"
#include "xmlParser.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = acFromAnsi(std::string_view(reinterpret_cast<const char*>(data), size));
    XmlParseResult result;
    const XmlDocNode root = parseDocument(text, L"AttributeList", &result);
    parseDocument(text, L"", nullptr);
    int cursor = 0;
    for (XmlDocNode child = root.childByName(L"Attribute", &cursor); !child.isEmpty(); child = root.childByName(L"Attribute", &cursor)) {
        child.childByName(L"Name").textAt(0);
        child.attributeValueAt(0);
    }
    xmlErrorText(result.code);
    return 0;
}
