#include "WinFiles.h"
#include "WinTestSupport.h"
#include "XmlLite.h"

#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <rapidcheck.h>

namespace {
// Keeps what is written; can be told to fail.
class MemoryStream final : public ISequentialStream {
public:
    HRESULT QueryInterface(REFIID iid, void** object) override {
        *object = iid == IID_ISequentialStream ? this : nullptr;
        if (*object == nullptr)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG AddRef() override { return ++references; }
    ULONG Release() override { return --references; }
    HRESULT Read(void*, ULONG, ULONG*) override { return STG_E_ACCESSDENIED; }
    HRESULT Write(const void* data, ULONG count, ULONG* done) override {
        if (bytes.size() + count > room)
            return STG_E_MEDIUMFULL;
        bytes.append(static_cast<const char*>(data), count);
        *done = count;
        return S_OK;
    }
    std::string bytes;
    std::size_t room = ~std::size_t{0};
    ULONG references = 1;
};

class Writer {
public:
    explicit Writer(LONG_PTR indent = 0) {
        void* made = nullptr;
        EXPECT_EQ(CreateXmlWriter(IID_IXmlWriter, &made, nullptr), S_OK);
        xml = static_cast<IXmlWriter*>(made);
        xml->SetProperty(XmlWriterProperty_Indent, indent);
        EXPECT_EQ(xml->SetOutput(&stream), S_OK);
    }
    ~Writer() { xml->Release(); }
    std::string text() {
        xml->Flush();
        return stream.bytes;
    }
    MemoryStream stream; // must outlive the writer's release
    IXmlWriter* xml = nullptr;
};

bool isWellFormed(const std::string& bytes) {
    xmlDoc* const document = xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr, XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_NONET);
    const xmlError* const error = xmlGetLastError(); // faults of namespaces still give a document
    const bool sound = document != nullptr && (error == nullptr || error->level < XML_ERR_ERROR || error->code == XML_WAR_NS_URI);
    xmlResetLastError();
    xmlFreeDoc(document);
    return sound;
}
} // namespace

// ---- the form ----------------------------------------------------------------------------------

TEST(XmlWriter, writes_a_document_as_an_export_does) {
    Writer out(1);
    EXPECT_EQ(out.xml->WriteStartDocument(XmlStandalone_Omit), S_OK);
    EXPECT_EQ(out.xml->WriteStartElement(nullptr, L"Terv", nullptr), S_OK);
    EXPECT_EQ(out.xml->WriteWhitespace(L"\n"), S_OK);
    EXPECT_EQ(out.xml->WriteElementString(nullptr, L"Version", nullptr, L"11.0.0"), S_OK);
    EXPECT_EQ(out.xml->WriteWhitespace(L"\n"), S_OK);
    EXPECT_EQ(out.xml->WriteStartElement(nullptr, L"Post", nullptr), S_OK);
    EXPECT_EQ(out.xml->WriteAttributeString(nullptr, L"id", nullptr, L"1"), S_OK);
    EXPECT_EQ(out.xml->WriteAttributeString(nullptr, L"handle", nullptr, L"2F"), S_OK);
    EXPECT_EQ(out.xml->WriteWhitespace(L"\n"), S_OK);
    EXPECT_EQ(out.xml->WriteElementString(nullptr, L"TIPUS", nullptr, L"tábla, \"őrző\""), S_OK);
    EXPECT_EQ(out.xml->WriteWhitespace(L"\n"), S_OK);
    EXPECT_EQ(out.xml->WriteElementString(nullptr, L"URES", nullptr, nullptr), S_OK);
    EXPECT_EQ(out.xml->WriteWhitespace(L"\n"), S_OK);
    EXPECT_EQ(out.xml->WriteFullEndElement(), S_OK);
    EXPECT_EQ(out.xml->WriteWhitespace(L"\n"), S_OK);
    EXPECT_EQ(out.xml->WriteFullEndElement(), S_OK);
    EXPECT_EQ(out.xml->WriteEndDocument(), S_OK);
    EXPECT_EQ(out.xml->Flush(), S_OK);
    EXPECT_EQ(out.stream.bytes, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<Terv>\n<Version>11.0.0</Version>\n<Post id=\"1\" handle=\"2F\">\n"
                                "<TIPUS>tábla, \"őrző\"</TIPUS>\n<URES />\n</Post>\n</Terv>");
}

TEST(XmlWriter, indents_elements_but_not_what_the_caller_formats) {
    Writer out(1);
    out.xml->WriteStartDocument(XmlStandalone_Yes);
    out.xml->WriteComment(L"fej");
    out.xml->WriteStartElement(nullptr, L"a", nullptr);
    out.xml->WriteElementString(nullptr, L"b", nullptr, L"1");
    out.xml->WriteStartElement(nullptr, L"c", nullptr);
    out.xml->WriteElementString(nullptr, L"d", nullptr, nullptr);
    out.xml->WriteEndElement();
    out.xml->WriteStartElement(nullptr, L"m", nullptr);
    out.xml->WriteString(L"szöveg ");
    out.xml->WriteStartElement(nullptr, L"n", nullptr);
    out.xml->WriteElementString(nullptr, L"o", nullptr, nullptr);
    out.xml->WriteEndDocument();
    EXPECT_EQ(out.text(), "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<!--fej-->\r\n<a>\r\n  <b>1</b>\r\n  <c>\r\n    <d />\r\n  </c>\r\n"
                          "  <m>szöveg <n><o /></n></m>\r\n</a>");
}

TEST(XmlWriter, without_indentation_adds_nothing) {
    Writer out;
    out.xml->WriteStartDocument(XmlStandalone_No);
    out.xml->WriteStartElement(nullptr, L"a", nullptr);
    out.xml->WriteElementString(nullptr, L"b", nullptr, L"");
    out.xml->WriteEndDocument();
    EXPECT_EQ(out.text(), "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?><a><b></b></a>");
}

TEST(XmlWriter, elements_of_nothing_are_self_closed_unless_a_full_end_is_asked_for) {
    Writer out;
    out.xml->WriteStartElement(nullptr, L"a", nullptr);
    out.xml->WriteStartElement(nullptr, L"b", nullptr);
    out.xml->WriteAttributeString(nullptr, L"x", nullptr, nullptr);
    out.xml->WriteEndElement();
    out.xml->WriteStartElement(nullptr, L"c", nullptr);
    out.xml->WriteFullEndElement();
    out.xml->SetProperty(XmlWriterProperty_CompactEmptyElement, 1);
    out.xml->WriteElementString(nullptr, L"d", nullptr, nullptr);
    out.xml->WriteEndElement();
    EXPECT_EQ(out.text(), "<a><b x=\"\" /><c></c><d/></a>");
}

TEST(XmlWriter, escapes_what_a_reader_would_change) {
    Writer out;
    out.xml->WriteStartElement(nullptr, L"a", nullptr);
    out.xml->WriteAttributeString(nullptr, L"x", nullptr, L"<\"&'>\t\r\nő");
    out.xml->WriteString(L"<\"&'>\t\r\nő\U0001F6A6");
    out.xml->WriteCharEntity(L'ű');
    out.xml->WriteChars(L"1<2345", 3);
    out.xml->WriteCData(L"<x>]]></x>");
    out.xml->WriteComment(L"a--b---");
    out.xml->WriteProcessingInstruction(L"pi", L"x?>y");
    out.xml->WriteEndElement();
    EXPECT_EQ(out.text(), "<a x=\"&lt;&quot;&amp;'&gt;&#x9;&#xD;&#xA;ő\">&lt;\"&amp;'&gt;\t&#xD;\nő\xF0\x9F\x9A\xA6&#x171;1&lt;2<![CDATA[<x>]]]]><![CDATA[></x>]]>"
                          "<!--a- -b- - - --><?pi x? >y?></a>");
    EXPECT_TRUE(isWellFormed(out.stream.bytes));
}

TEST(XmlWriter, declares_namespaces_once_where_they_are_needed) {
    Writer out;
    out.xml->WriteStartElement(L"r", L"root", L"urn:1");
    out.xml->WriteStartElement(L"r", L"in", L"urn:1");
    out.xml->WriteAttributeString(nullptr, L"a", L"urn:2", L"v");
    out.xml->WriteAttributeString(L"r", L"b", L"urn:1", L"w");
    out.xml->WriteAttributeString(L"xml", L"space", nullptr, L"preserve");
    out.xml->WriteStartElement(nullptr, L"deep", L"urn:2");
    out.xml->WriteEndElement();
    out.xml->WriteEndElement();
    out.xml->WriteStartElement(nullptr, L"plain", L"urn:3");
    out.xml->WriteAttributeString(L"xmlns", L"q", nullptr, L"urn:4");
    out.xml->WriteElementString(L"q", L"e", nullptr, L"x");
    out.xml->WriteEndDocument();
    EXPECT_EQ(out.text(), "<r:root xmlns:r=\"urn:1\"><r:in xmlns:p1=\"urn:2\" p1:a=\"v\" r:b=\"w\" xml:space=\"preserve\"><p1:deep /></r:in>"
                          "<plain xmlns=\"urn:3\" xmlns:q=\"urn:4\"><q:e>x</q:e></plain></r:root>");
    EXPECT_TRUE(isWellFormed(out.stream.bytes));
}

TEST(XmlWriter, a_prefix_in_use_on_an_element_keeps_its_namespace) {
    Writer out;
    out.xml->WriteStartElement(L"p", L"a", L"urn:1");
    out.xml->WriteStartElement(L"p", L"b", L"urn:1");
    EXPECT_EQ(out.xml->WriteAttributeString(L"xmlns", L"p", nullptr, L"urn:2"), WR_E_NSPREFIXDECLARED);
    EXPECT_EQ(out.xml->WriteAttributeString(L"p", L"x", L"urn:1", L"1"), S_OK);
    EXPECT_EQ(out.xml->WriteAttributeString(L"xmlns", L"q", nullptr, L"urn:1"), S_OK);
    EXPECT_EQ(out.xml->WriteAttributeString(L"q", L"x", nullptr, L"2"), WR_E_DUPLICATEATTRIBUTE); // the same name by another prefix
    out.xml->WriteEndDocument();
    EXPECT_EQ(out.text(), "<p:a xmlns:p=\"urn:1\"><p:b p:x=\"1\" xmlns:q=\"urn:1\" /></p:a>");
}

// ---- what is refused ---------------------------------------------------------------------------

TEST(XmlWriter, refuses_calls_in_the_wrong_place_and_writes_nothing_of_them) {
    Writer out;
    EXPECT_EQ(out.xml->WriteEndElement(), WR_E_INVALIDACTION);
    EXPECT_EQ(out.xml->WriteFullEndElement(), WR_E_INVALIDACTION);
    EXPECT_EQ(out.xml->WriteEndDocument(), WR_E_INVALIDACTION);
    EXPECT_EQ(out.xml->WriteString(L"x"), WR_E_INVALIDACTION);
    EXPECT_EQ(out.xml->WriteAttributeString(nullptr, L"a", nullptr, L"1"), WR_E_INVALIDACTION);
    EXPECT_EQ(out.text(), "");
    EXPECT_EQ(out.xml->WriteStartDocument(XmlStandalone_Omit), S_OK);
    EXPECT_EQ(out.xml->WriteStartDocument(XmlStandalone_Omit), WR_E_INVALIDACTION);
    EXPECT_EQ(out.xml->WriteCData(L"x"), WR_E_INVALIDACTION);
    EXPECT_EQ(out.xml->WriteEndDocument(), WR_E_INVALIDACTION);
    EXPECT_EQ(out.xml->WriteStartElement(nullptr, L"a", nullptr), S_OK);
    EXPECT_EQ(out.xml->WriteAttributeString(nullptr, L"x", nullptr, L"1"), S_OK);
    EXPECT_EQ(out.xml->WriteAttributeString(nullptr, L"x", nullptr, L"2"), WR_E_DUPLICATEATTRIBUTE);
    EXPECT_EQ(out.xml->WriteString(L""), S_OK);
    EXPECT_EQ(out.xml->WriteAttributeString(nullptr, L"y", nullptr, L"1"), WR_E_INVALIDACTION);
    EXPECT_EQ(out.xml->WriteEndElement(), S_OK);
    EXPECT_EQ(out.xml->WriteStartElement(nullptr, L"b", nullptr), WR_E_INVALIDACTION);
    EXPECT_EQ(out.xml->WriteWhitespace(L"\n"), S_OK);
    EXPECT_EQ(out.xml->WriteEndDocument(), S_OK);
    EXPECT_EQ(out.xml->WriteWhitespace(L"\n"), WR_E_INVALIDACTION);
    EXPECT_EQ(out.xml->WriteEndDocument(), WR_E_INVALIDACTION);
    EXPECT_EQ(out.text(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a x=\"1\"></a>\n");
}

TEST(XmlWriter, refuses_names_and_characters_that_no_document_may_hold) {
    Writer out;
    EXPECT_EQ(out.xml->WriteStartElement(nullptr, nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(out.xml->WriteStartElement(nullptr, L"", nullptr), E_INVALIDARG);
    for (const wchar_t* name : {L"1a", L"a b", L"a:b", L"<a", L"a\x01"})
        EXPECT_EQ(out.xml->WriteStartElement(nullptr, name, nullptr), WC_E_NAMECHARACTER);
    EXPECT_EQ(out.xml->WriteStartElement(L"a b", L"a", L"urn:1"), WC_E_NAMECHARACTER);
    EXPECT_EQ(out.xml->WriteStartElement(L"p", L"a", nullptr), WR_E_NSPREFIXWITHEMPTYNSURI);
    EXPECT_EQ(out.xml->WriteStartElement(L"xml", L"a", L"urn:1"), WR_E_XMLPREFIXDECLARATION);
    EXPECT_EQ(out.xml->WriteStartElement(nullptr, L"őz", nullptr), S_OK);
    EXPECT_EQ(out.xml->WriteAttributeString(nullptr, L"a", nullptr, L"\x01"), WC_E_XMLCHARACTER);
    EXPECT_EQ(out.xml->WriteAttributeString(L"p", L"a", nullptr, L"1"), WR_E_NSPREFIXWITHEMPTYNSURI);
    EXPECT_EQ(out.xml->WriteElementString(nullptr, L"b", nullptr, L"a\x1F"), WC_E_XMLCHARACTER);
    EXPECT_EQ(out.xml->WriteString(L"\xFFFF"), WC_E_XMLCHARACTER);
    EXPECT_EQ(out.xml->WriteCharEntity(static_cast<wchar_t>(0xD800)), WC_E_XMLCHARACTER);
    EXPECT_EQ(out.xml->WriteComment(L"\x02"), WC_E_XMLCHARACTER);
    EXPECT_EQ(out.xml->WriteWhitespace(L" x"), WR_E_NONWHITESPACE);
    EXPECT_EQ(out.xml->WriteProcessingInstruction(L"XML", L""), WC_E_LEADINGXML);
    EXPECT_EQ(out.xml->WriteEndDocument(), S_OK);
    EXPECT_EQ(out.text(), "<őz />");
}

TEST(XmlWriter, without_an_output_every_call_is_unexpected) {
    Writer out;
    EXPECT_EQ(out.xml->SetOutput(nullptr), S_OK);
    EXPECT_EQ(out.stream.references, 1u);
    EXPECT_EQ(out.xml->WriteStartDocument(XmlStandalone_Omit), E_UNEXPECTED);
    EXPECT_EQ(out.xml->WriteStartElement(nullptr, L"a", nullptr), E_UNEXPECTED);
    EXPECT_EQ(out.xml->WriteString(nullptr), E_UNEXPECTED);
    EXPECT_EQ(out.xml->Flush(), E_UNEXPECTED);
}

TEST(XmlWriter, refuses_unknown_properties_and_values) {
    Writer out;
    LONG_PTR value = 7;
    EXPECT_EQ(out.xml->GetProperty(XmlWriterProperty_Indent, &value), S_OK);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(out.xml->SetProperty(XmlWriterProperty_Indent, 5), S_OK);
    EXPECT_EQ(out.xml->GetProperty(XmlWriterProperty_Indent, &value), S_OK);
    EXPECT_EQ(value, 1);
    EXPECT_EQ(out.xml->GetProperty(XmlWriterProperty_ConformanceLevel, &value), S_OK);
    EXPECT_EQ(value, XmlConformanceLevel_Document);
    EXPECT_EQ(out.xml->SetProperty(XmlWriterProperty_ConformanceLevel, 3), E_INVALIDARG);
    EXPECT_EQ(out.xml->SetProperty(6, 0), E_INVALIDARG);
    EXPECT_EQ(out.xml->GetProperty(6, &value), E_INVALIDARG);
    EXPECT_EQ(out.xml->GetProperty(0, nullptr), E_INVALIDARG);
}

TEST(XmlWriter, a_fragment_may_have_many_roots_and_text) {
    Writer out;
    out.xml->SetProperty(XmlWriterProperty_ConformanceLevel, XmlConformanceLevel_Fragment);
    EXPECT_EQ(out.xml->WriteStartDocument(XmlStandalone_Omit), WR_E_INVALIDACTION);
    EXPECT_EQ(out.xml->WriteElementString(nullptr, L"a", nullptr, nullptr), S_OK);
    EXPECT_EQ(out.xml->WriteString(L"x"), S_OK);
    EXPECT_EQ(out.xml->WriteElementString(nullptr, L"b", nullptr, nullptr), S_OK);
    EXPECT_EQ(out.xml->WriteEndDocument(), S_OK);
    EXPECT_EQ(out.text(), "<a />x<b />");
}

TEST(XmlWriter, the_declaration_can_be_omitted) {
    Writer out;
    out.xml->SetProperty(XmlWriterProperty_OmitXmlDeclaration, 1);
    EXPECT_EQ(out.xml->WriteStartDocument(XmlStandalone_Yes), S_OK);
    EXPECT_EQ(out.xml->WriteElementString(nullptr, L"a", nullptr, nullptr), S_OK);
    EXPECT_EQ(out.text(), "<a />");
}

// ---- streams and references --------------------------------------------------------------------

TEST(XmlWriter, a_full_disk_is_told_at_once_or_by_Flush_and_by_all_behind_it) {
    Writer out;
    out.stream.room = 100;
    EXPECT_EQ(out.xml->WriteStartElement(nullptr, L"a", nullptr), S_OK);
    EXPECT_EQ(out.xml->Flush(), S_OK);
    HRESULT result = out.xml->WriteString(std::wstring(200, L'x').c_str());
    if (SUCCEEDED(result))
        result = out.xml->Flush();
    EXPECT_EQ(result, STG_E_MEDIUMFULL);
    EXPECT_EQ(out.xml->WriteString(L"x"), STG_E_MEDIUMFULL);
    EXPECT_EQ(out.xml->WriteEndDocument(), STG_E_MEDIUMFULL);
    EXPECT_EQ(out.xml->Flush(), STG_E_MEDIUMFULL);
    out.stream.room = 1000;
    out.stream.bytes.clear();
    EXPECT_EQ(out.xml->SetOutput(&out.stream), S_OK); // a new document
    EXPECT_EQ(out.xml->WriteElementString(nullptr, L"b", nullptr, nullptr), S_OK);
    EXPECT_EQ(out.text(), "<b />");
}

TEST(XmlWriter, holds_its_stream_and_is_held_by_counted_references) {
    MemoryStream stream;
    void* made = nullptr;
    EXPECT_EQ(CreateXmlWriter(GUID{1, 2, 3, {}}, &made, nullptr), E_NOINTERFACE);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(CreateXmlWriter(IID_IXmlWriter, nullptr, nullptr), E_POINTER);
    ASSERT_EQ(CreateXmlWriter(IID_IUnknown, &made, nullptr), S_OK);
    IXmlWriter* writer = nullptr;
    ASSERT_EQ(static_cast<IUnknown*>(made)->QueryInterface(IID_IXmlWriter, reinterpret_cast<void**>(&writer)), S_OK);
    EXPECT_EQ(static_cast<IUnknown*>(made)->Release(), 1u);
    EXPECT_EQ(writer->SetOutput(&stream), S_OK);
    EXPECT_EQ(stream.references, 2u);
    EXPECT_EQ(writer->WriteElementString(nullptr, L"a", nullptr, L"x"), S_OK);
    EXPECT_EQ(writer->Release(), 0u);
    EXPECT_EQ(stream.references, 1u);
    EXPECT_EQ(stream.bytes, "<a>x</a>"); // what was not flushed is not lost
}

TEST(XmlWriter, an_element_that_is_still_open_at_the_end_of_the_writer_gets_no_end_tag) {
    MemoryStream stream;
    {
        IXmlWriter* writer = nullptr;
        ASSERT_EQ(CreateXmlWriter(IID_IXmlWriter, reinterpret_cast<void**>(&writer), nullptr), S_OK);
        writer->SetOutput(&stream);
        writer->WriteStartElement(nullptr, L"a", nullptr);
        writer->WriteString(L"x");
        writer->Release();
    }
    EXPECT_EQ(stream.bytes, "<a>x");
}

TEST(XmlWriter, writes_into_a_file_that_xmllint_accepts) {
    const std::string folder = testTempPath(), path = folder + "/big.xml";
    IStream* file = nullptr;
    ASSERT_EQ(SHCreateStreamOnFileW((acFromUtf8(folder) + L"\\big.xml").c_str(), 0x1001, &file), S_OK);
    IXmlWriter* writer = nullptr;
    ASSERT_EQ(CreateXmlWriter(IID_IXmlWriter, reinterpret_cast<void**>(&writer), nullptr), S_OK);
    ASSERT_EQ(writer->SetOutput(file), S_OK);
    ASSERT_EQ(writer->SetProperty(XmlWriterProperty_Indent, 1), S_OK);
    writer->WriteStartDocument(XmlStandalone_Omit);
    writer->WriteStartElement(nullptr, L"Terv", nullptr);
    for (int i = 0; i < 20000; ++i) {
        writer->WriteStartElement(nullptr, L"Post", nullptr);
        writer->WriteAttributeString(nullptr, L"id", nullptr, acFormat(L"%d", i).c_str());
        writer->WriteElementString(nullptr, L"NEV", nullptr, L"árvíztűrő <tükörfúrógép> & más");
        ASSERT_EQ(writer->WriteFullEndElement(), S_OK);
    }
    EXPECT_EQ(writer->WriteEndDocument(), S_OK);
    EXPECT_EQ(writer->Flush(), S_OK);
    EXPECT_EQ(writer->Release(), 0u);
    EXPECT_EQ(file->Release(), 0u);
    EXPECT_EQ(std::system(("xmllint --nonet --noout '" + path + "'").c_str()), 0);
    xmlDoc* const document = xmlReadFile(path.c_str(), nullptr, XML_PARSE_NONET | XML_PARSE_NOBLANKS);
    ASSERT_NE(document, nullptr);
    int posts = 0;
    for (xmlNode* post = xmlDocGetRootElement(document)->children; post != nullptr; post = post->next) {
        xmlChar* const id = xmlGetProp(post, reinterpret_cast<const xmlChar*>("id"));
        xmlChar* const name = xmlNodeGetContent(post);
        posts += std::string(reinterpret_cast<char*>(id)) == std::to_string(posts) && std::string(reinterpret_cast<char*>(name)) == "árvíztűrő <tükörfúrógép> & más";
        xmlFree(id);
        xmlFree(name);
    }
    xmlFreeDoc(document);
    EXPECT_EQ(posts, 20000);
}

// Any calls in any order: what is refused leaves no trace, and what is ended is a document.
TEST(XmlWriter, no_sequence_of_calls_breaks_the_document) {
    EXPECT_TRUE(rc::check([] {
        Writer out(*rc::gen::inRange(0, 2));
        bool ended = false;
        const auto texts = rc::gen::element<std::wstring>(L"", L"a", L"ő<&>\"'", L"x\r\n\t", L"]]>", L"--", L"?>", L"\x01", L" \n", L"p:q", L"xmlns", L"xml", L"urn:1");
        const auto names = rc::gen::element<std::wstring>(L"a", L"b", L"ő", L"", L"1", L"p:q", L"xmlns", L"xml");
        const auto prefixes = rc::gen::element<std::wstring>(L"", L"", L"", L"p", L"q", L"xmlns", L"xml");
        const auto uris = rc::gen::element<std::wstring>(L"", L"", L"urn:1", L"urn:2");
        const int calls = *rc::gen::inRange(0, 40);
        for (int i = 0; i < calls; ++i) {
            const std::wstring text = *texts, name = *names, prefix = *prefixes, uri = *uris;
            out.xml->Flush();
            const std::string before = out.stream.bytes;
            HRESULT result = S_OK;
            switch (*rc::gen::inRange(0, 14)) {
            case 0: result = out.xml->WriteStartDocument(XmlStandalone_Omit); break;
            case 1:
            case 2: result = out.xml->WriteStartElement(prefix.c_str(), name.c_str(), uri.c_str()); break;
            case 3: result = out.xml->WriteEndElement(); break;
            case 4: result = out.xml->WriteFullEndElement(); break;
            case 5:
            case 6: result = out.xml->WriteAttributeString(prefix.c_str(), name.c_str(), uri.c_str(), text.c_str()); break;
            case 7: result = out.xml->WriteElementString(prefix.c_str(), name.c_str(), uri.c_str(), text.c_str()); break;
            case 8: result = out.xml->WriteString(text.c_str()); break;
            case 9: result = out.xml->WriteWhitespace(text.c_str()); break;
            case 10: result = out.xml->WriteComment(text.c_str()); break;
            case 11: result = out.xml->WriteCData(text.c_str()); break;
            case 12: result = out.xml->WriteProcessingInstruction(name.c_str(), text.c_str()); break;
            default: result = out.xml->WriteCharEntity(text.empty() ? L'x' : text[0]); break;
            }
            out.xml->Flush();
            RC_LOG() << out.stream.bytes << "\n";
            RC_ASSERT(SUCCEEDED(result) || out.stream.bytes == before);
        }
        ended = SUCCEEDED(out.xml->WriteEndDocument());
        out.xml->Flush();
        RC_LOG() << out.stream.bytes;
        RC_ASSERT(!ended || isWellFormed(out.stream.bytes));
    }));
}
