// The characters of XML documents: what may stand in names and text, and how text is written.
#pragma once

#include "WinTypes.h"

#include <string>
#include <string_view>

// A name without a colon, by the rules of namespaces.
bool xmlIsName(std::wstring_view name);
bool xmlIsText(std::wstring_view text);
bool xmlIsWhitespace(std::wstring_view text);
// As UTF-8, with what a reader would take for markup, or change, as references.
std::string xmlEscapedText(std::wstring_view text);
std::string xmlEscapedAttribute(std::wstring_view value);
std::string xmlCommentText(std::wstring_view text);     // never ends the comment
std::string xmlInstructionText(std::wstring_view text); // never ends the instruction
std::string xmlCDataText(std::wstring_view text);       // goes on in a new section where it would end it
