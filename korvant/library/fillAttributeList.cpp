#include "fillAttributeList.h"

#include "CListCtrlEd.h"
#include "xmlParser.h"

namespace {
std::wstring textOf(const XmlDocNode& node) {
    const ACHAR* const text = node.textAt(0);
    return text != nullptr ? text : L"";
}

// False for an element that lacks what every attribute must have.
bool readAttribute(const XmlDocNode& element, const AttributeLookup& stored, attributeRow& row) {
    const XmlDocNode name = element.childByName(L"Name");
    const XmlDocNode defaultValue = element.childByName(L"DefaultValue");
    const XmlDocNode valueList = element.childByName(L"ValueList");
    if (name.isEmpty() || valueList.isEmpty())
        return false;
    row.kind = attributeRow::kDropDown;
    row.source = attributeRow::kUserParameter;
    row.name = textOf(name);
    row.value = stored(row.name.c_str());
    if (row.value.empty() && !defaultValue.isEmpty())
        row.value = textOf(defaultValue);
    row.valueList = textOf(valueList);
    return true;
}
} // namespace

void fillAttributeList(CListCtrlEd& list, const std::wstring& path, const AttributeLookup& stored) {
    const XmlDocNode root = openDocument(path, L"AttributeList");
    const int count = root.childCount(L"Attribute");
    for (int i = 0; i < count; ++i) {
        attributeRow row;
        if (readAttribute(root.childByNameAt(L"Attribute", i), stored, row))
            list.addRow(row);
    }
}

void fillAttributeLists(CListCtrlEd& list, const std::wstring& baseFolder, const std::wstring& blockFile,
                        const AttributeLookup& stored) {
    if (baseFolder.empty())
        return;
    fillAttributeList(list, baseFolder + L"\\attributes.xml", stored);
    const std::size_t separator = blockFile.rfind(L'\\');
    if (separator != std::wstring::npos)
        fillAttributeList(list, baseFolder + L"\\" + blockFile.substr(0, separator) + L"\\attributes.xml", stored);
}
