// One pass over the text of an XML file, building the tree.
#include "XmlScanner.h"

#include "AcUtText.h"

#include <array>
#include <optional>

namespace {

bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\0';
}

bool endsName(wchar_t c) {
    return isBlank(c) || c == L'<' || c == L'>' || c == L'/' || c == L'=' || c == L'?' || c == L'"' || c == L'\'';
}

std::wstring_view trimmed(std::wstring_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::optional<wchar_t> namedEntity(std::wstring_view name) {
    constexpr std::array<std::pair<std::wstring_view, wchar_t>, 5> kEntities{
        {{L"amp", L'&'}, {L"lt", L'<'}, {L"gt", L'>'}, {L"quot", L'"'}, {L"apos", L'\''}}};
    for (const auto& [known, character] : kEntities)
        if (acutWcsicmp(std::wstring(name).c_str(), known.data()) == 0)
            return character;
    return std::nullopt;
}

std::optional<wchar_t> numericEntity(std::wstring_view body) {
    const bool hex = body.size() > 1 && (body[1] == L'x' || body[1] == L'X');
    std::wstring_view digits = body.substr(hex ? 2 : 1);
    if (digits.empty() || digits.size() > 7)
        return std::nullopt;
    unsigned long value = 0;
    for (const wchar_t c : digits) {
        const bool decimal = c >= L'0' && c <= L'9';
        const wchar_t lower = static_cast<wchar_t>(c | 0x20);
        if (!decimal && !(hex && lower >= L'a' && lower <= L'f'))
            return std::nullopt;
        value = value * (hex ? 16 : 10) + static_cast<unsigned long>(decimal ? c - L'0' : lower - L'a' + 10);
    }
    if (value == 0 || value > 0x10FFFF)
        return std::nullopt;
    return static_cast<wchar_t>(value);
}

} // namespace

bool XmlScanner::fail(XmlCode code, std::size_t position) {
    mCode = code;
    mFault = position;
    return false;
}

void XmlScanner::warn(XmlCode code, std::size_t position) {
    if (mCode == kXmlNone) {
        mCode = code;
        mFault = position;
    }
}

std::shared_ptr<XmlDocNode::Element> XmlScanner::scan() {
    auto root = std::make_shared<Element>();
    root->isRoot = true;
    mOpen = {root};
    bool going = true;
    while (going && !atEnd())
        going = mText[mAt] == L'<' ? scanMarkup() : scanText();
    // A declaration has no end tag: it stays open to the end of the file, and the rest lies in it.
    while (going && mOpen.size() > 1 && mOpen.back()->isDeclaration)
        mOpen.pop_back();
    if (going && mOpen.size() > 1)
        going = fail(kXmlUnmatchedEndTag, mText.size());
    if (going && root->children.empty())
        fail(kXmlNoElements, 0);
    mOpen.clear();
    return root;
}

bool XmlScanner::scanMarkup() {
    if (startsWith(L"<!--"))
        return skipSection(L"<!--", L"-->", false);
    if (startsWith(L"<![CDATA["))
        return skipSection(L"<![CDATA[", L"]]>", true);
    if (startsWith(L"<!DOCTYPE"))
        return skipDoctype();
    if (startsWith(L"<!"))
        return fail(kXmlInvalidTag, mAt);
    return startsWith(L"</") ? scanEndTag() : scanStartTag();
}

bool XmlScanner::scanText() {
    const std::size_t start = mAt;
    const std::size_t end = std::min(mText.find(L'<', mAt), mText.size());
    mAt = end;
    const std::wstring_view piece = trimmed(mText.substr(start, end - start));
    if (piece.empty())
        return true;
    if (mOpen.size() == 1)
        return fail(kXmlFirstTokenNotStartTag, start);
    std::wstring text;
    if (!appendDecoded(piece, static_cast<std::size_t>(piece.data() - mText.data()), text))
        return false;
    mOpen.back()->texts.push_back(std::move(text));
    return true;
}

bool XmlScanner::skipSection(std::wstring_view opening, std::wstring_view closing, bool keepAsText) {
    const std::size_t start = mAt + opening.size();
    const std::size_t end = mText.find(closing, start);
    if (end == std::wstring_view::npos)
        return fail(kXmlUnmatchedClearTagEnd, mAt);
    if (keepAsText && mOpen.size() > 1)
        mOpen.back()->texts.emplace_back(mText.substr(start, end - start));
    mAt = end + closing.size();
    return true;
}

bool XmlScanner::skipDoctype() {
    const std::size_t subset = mText.find(L'[', mAt);
    const std::size_t plainEnd = mText.find(L'>', mAt);
    if (subset < plainEnd)
        return skipSection(L"<!DOCTYPE", L"]>", false);
    return skipSection(L"<!DOCTYPE", L">", false);
}

bool XmlScanner::scanStartTag() {
    const std::size_t start = mAt++;
    auto element = std::make_shared<Element>();
    if (!atEnd() && mText[mAt] == L'?') {
        element->isDeclaration = true;
        ++mAt;
    }
    element->name = scanName();
    if (element->name.empty())
        return fail(kXmlMissingStartTagName, start);
    bool selfClosed = false;
    if (!scanAttributes(*element, selfClosed))
        return false;
    mOpen.back()->children.push_back(element);
    if (!selfClosed)
        mOpen.push_back(std::move(element));
    return true;
}

bool XmlScanner::scanEndTag() {
    const std::size_t start = mAt;
    mAt += 2;
    const std::wstring name = scanName();
    if (name.empty())
        return fail(kXmlMissingEndTagName, start);
    skipBlanks();
    if (atEnd() || mText[mAt] != L'>')
        return fail(kXmlUnexpectedToken, mAt);
    ++mAt;
    if (mOpen.size() > 1 && acutWcsicmp(mOpen.back()->name.c_str(), name.c_str()) == 0) {
        mOpen.pop_back();
        return true;
    }
    // A stray end tag closes the nearest open element of its name, or nothing.
    warn(kXmlUnmatchedEndTagWarning, start);
    for (std::size_t i = mOpen.size(); i-- > 1;)
        if (acutWcsicmp(mOpen[i]->name.c_str(), name.c_str()) == 0) {
            mOpen.resize(i);
            break;
        }
    return true;
}

bool XmlScanner::scanAttributes(Element& element, bool& selfClosed) {
    for (;;) {
        skipBlanks();
        if (atEnd())
            return fail(kXmlUnexpectedToken, mAt);
        if (mText[mAt] == L'>') {
            ++mAt;
            return true;
        }
        if (startsWith(L"/>") || startsWith(L"?>")) {
            selfClosed = mText[mAt] == L'/';
            mAt += 2;
            return true;
        }
        std::wstring name = scanName(), value;
        if (name.empty())
            return fail(kXmlUnexpectedToken, mAt);
        skipBlanks();
        if (!atEnd() && mText[mAt] == L'=') {
            ++mAt;
            if (!scanAttributeValue(value))
                return false;
        }
        element.attributes.emplace_back(std::move(name), std::move(value));
    }
}

bool XmlScanner::scanAttributeValue(std::wstring& value) {
    skipBlanks();
    if (atEnd())
        return fail(kXmlUnexpectedToken, mAt);
    const wchar_t quote = mText[mAt];
    if (quote != L'"' && quote != L'\'') {
        value = scanName();
        return !value.empty() || fail(kXmlUnexpectedToken, mAt);
    }
    const std::size_t start = mAt + 1;
    const std::size_t end = mText.find(quote, start);
    if (end == std::wstring_view::npos)
        return fail(kXmlUnmatchedQuote, mAt);
    mAt = end + 1;
    return appendDecoded(mText.substr(start, end - start), start, value);
}

bool XmlScanner::appendDecoded(std::wstring_view raw, std::size_t position, std::wstring& out) {
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (raw[i] != L'&') {
            out += raw[i];
            continue;
        }
        const std::size_t end = raw.find(L';', i);
        const std::wstring_view body = end == std::wstring_view::npos ? std::wstring_view() : raw.substr(i + 1, end - i - 1);
        const auto character = body.starts_with(L"#") ? numericEntity(body) : namedEntity(body);
        if (!character)
            return fail(kXmlUnknownEntity, position + i);
        out += *character;
        i = end;
    }
    return true;
}

std::wstring XmlScanner::scanName() {
    const std::size_t start = mAt;
    while (!atEnd() && !endsName(mText[mAt]))
        ++mAt;
    return std::wstring(mText.substr(start, mAt - start));
}

void XmlScanner::skipBlanks() {
    while (!atEnd() && isBlank(mText[mAt]))
        ++mAt;
}
