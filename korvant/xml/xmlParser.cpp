// Handles on the elements of a document, and the steps from a file to the element asked for.
#include "xmlParser.h"

#include "AcUtText.h"
#include "XmlScanner.h"

#include <array>

namespace {

using Element = XmlDocNode::Element;

constexpr std::array<const ACHAR*, 22> kErrorTexts{
    L"No error",
    L"Warning: Unmatched end tag",
    L"Error: No XML data",
    L"Error: First token not start tag",
    L"Error: Missing start tag name",
    L"Error: Missing end tag name",
    L"Error: Unmatched quote",
    L"Error: Unmatched end tag",
    L"Error: Unmatched clear tag end",
    L"Error: Unexpected token found",
    L"Error: Invalid tag found",
    L"Error: No elements found",
    L"Error: File not found",
    L"Error: First Tag not found",
    L"Error: Unknown character entity",
    L"Error: unable to convert between UNICODE and MultiByte chars",
    L"Error: unable to open file for writing",
    L"Error: cannot write into file",
    L"Warning: Base64-string length is not a multiple of 4",
    L"Warning: Base64-string is truncated",
    L"Error: Base64-string contains an illegal character",
    L"Error: Base64 decode output buffer is too small",
};

bool sameName(const Element& element, const ACHAR* name) {
    return acutWcsicmp(element.name.c_str(), name) == 0;
}

void setFault(XmlParseResult& result, Adesk::Int32 code, const std::wstring& text, std::size_t position) {
    result.code = code;
    result.line = result.column = 1;
    for (std::size_t i = 0; i < position && i < text.size(); ++i) {
        if (text[i] == L'\n') {
            ++result.line;
            result.column = 1;
        } else {
            ++result.column;
        }
    }
}

// A declaration holds the rest of the file, so the search goes on inside it.
std::shared_ptr<Element> findTag(std::shared_ptr<Element> current, const ACHAR* tag) {
    if (sameName(*current, tag))
        return current;
    while (current != nullptr) {
        std::shared_ptr<Element> declaration;
        for (const auto& child : current->children) {
            if (sameName(*child, tag))
                return child;
            if (child->isDeclaration) {
                declaration = child;
                break;
            }
        }
        current = declaration;
    }
    return nullptr;
}

} // namespace

const ACHAR* xmlErrorText(Adesk::Int32 code) {
    return code >= 0 && code < static_cast<Adesk::Int32>(kErrorTexts.size()) ? kErrorTexts[static_cast<std::size_t>(code)] : L"Unknown";
}

const ACHAR* XmlDocNode::name() const {
    return mElement == nullptr || mElement->isRoot ? nullptr : mElement->name.c_str();
}

bool XmlDocNode::isDeclaration() const {
    return mElement != nullptr && mElement->isDeclaration;
}

int XmlDocNode::childCount(const ACHAR* name) const {
    int count = 0;
    if (mElement != nullptr)
        for (const auto& child : mElement->children)
            count += sameName(*child, name) ? 1 : 0;
    return count;
}

XmlDocNode XmlDocNode::childByName(const ACHAR* name, int* cursor) const {
    if (mElement == nullptr)
        return XmlDocNode();
    const auto& children = mElement->children;
    for (std::size_t i = cursor != nullptr && *cursor > 0 ? static_cast<std::size_t>(*cursor) : 0; i < children.size(); ++i)
        if (sameName(*children[i], name)) {
            if (cursor != nullptr)
                *cursor = static_cast<int>(i) + 1;
            return XmlDocNode(children[i]);
        }
    return XmlDocNode();
}

XmlDocNode XmlDocNode::childByNameAt(const ACHAR* name, int k) const {
    int cursor = 0;
    XmlDocNode child;
    for (int i = 0; i <= k; ++i) {
        child = childByName(name, &cursor);
        if (child.isEmpty())
            break;
    }
    return child;
}

const ACHAR* XmlDocNode::textAt(int i) const {
    if (mElement == nullptr || i < 0 || static_cast<std::size_t>(i) >= mElement->texts.size())
        return nullptr;
    return mElement->texts[static_cast<std::size_t>(i)].c_str();
}

const ACHAR* XmlDocNode::attributeValueAt(int i) const {
    if (mElement == nullptr || i < 0 || static_cast<std::size_t>(i) >= mElement->attributes.size())
        return nullptr;
    return mElement->attributes[static_cast<std::size_t>(i)].second.c_str();
}

const ACHAR* XmlDocNode::attributeNameAt(int i) const {
    if (mElement == nullptr || i < 0 || static_cast<std::size_t>(i) >= mElement->attributes.size())
        return nullptr;
    return mElement->attributes[static_cast<std::size_t>(i)].first.c_str();
}

void XmlDocNode::setTextAt(int i, const ACHAR* text) {
    if (mElement == nullptr || i < 0 || static_cast<std::size_t>(i) > mElement->texts.size())
        return;
    if (static_cast<std::size_t>(i) == mElement->texts.size())
        mElement->texts.emplace_back(text);
    else
        mElement->texts[static_cast<std::size_t>(i)] = text;
}

void XmlDocNode::removeTextAt(int i) {
    if (mElement == nullptr || i < 0 || static_cast<std::size_t>(i) >= mElement->texts.size())
        return;
    mElement->texts.erase(mElement->texts.begin() + i);
}

XmlDocNode parseDocument(const std::wstring& text, const ACHAR* tag, XmlParseResult* result) {
    XmlParseResult ignored;
    XmlParseResult& outcome = result != nullptr ? *result : ignored;
    outcome = {};
    XmlScanner scanner(text);
    std::shared_ptr<Element> current = scanner.scan();
    if (scanner.code() != kXmlNone)
        setFault(outcome, scanner.code(), text, scanner.faultPosition());
    if (scanner.code() > kXmlUnmatchedEndTagWarning)
        return XmlDocNode();
    if (current->children.size() == 1 && current->texts.empty())
        current = current->children.front();
    if (tag == nullptr || *tag == L'\0')
        return XmlDocNode(current);
    current = findTag(current, tag);
    if (current == nullptr)
        setFault(outcome, kXmlFirstTagNotFound, text, 0);
    return XmlDocNode(current);
}
