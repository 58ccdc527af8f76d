#include "WinCom.h"
#include "WinFiles.h"
#include "WinTestSupport.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {
struct FileStream : testing::Test {
    std::string folder = testTempPath();
    std::string path = folder + "/stream.bin";
    std::wstring host = acFromUtf8(folder) + L"\\stream.bin";
    IStream* stream = nullptr;
    ~FileStream() override {
        if (stream != nullptr)
            stream->Release();
    }
    HRESULT create(DWORD mode) { return SHCreateStreamOnFileW(host.c_str(), mode, &stream); }
};
} // namespace

TEST_F(FileStream, is_created_and_written_through_at_once) {
    ASSERT_EQ(create(STGM_CREATE | STGM_WRITE), S_OK);
    ULONG done = 0;
    EXPECT_EQ(stream->Write("alma", 4, &done), S_OK);
    EXPECT_EQ(done, 4u);
    EXPECT_EQ(stream->Write("fa", 2, nullptr), S_OK);
    EXPECT_EQ(readBytes(path), "almafa");
    EXPECT_EQ(stream->Commit(0), S_OK);
}

TEST_F(FileStream, empties_a_file_that_stands) {
    writeBytes(path, "what stood there");
    ASSERT_EQ(create(0x1001), S_OK);
    EXPECT_EQ(readBytes(path), "");
}

TEST_F(FileStream, without_create_keeps_the_file_and_asks_for_one) {
    EXPECT_EQ(create(STGM_READWRITE), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(stream, nullptr);
    writeBytes(path, "abcdef");
    ASSERT_EQ(create(STGM_READWRITE), S_OK);
    EXPECT_EQ(stream->Write("XY", 2, nullptr), S_OK);
    EXPECT_EQ(readBytes(path), "XYcdef");
}

TEST_F(FileStream, reads_seeks_and_tells_the_end) {
    writeBytes(path, "0123456789");
    ASSERT_EQ(create(STGM_READ), S_OK);
    char bytes[16] = {};
    ULONG done = 0;
    ULARGE_INTEGER place{};
    EXPECT_EQ(stream->Seek({4}, STREAM_SEEK_SET, &place), S_OK);
    EXPECT_EQ(place.QuadPart, 4u);
    EXPECT_EQ(stream->Read(bytes, 3, &done), S_OK);
    EXPECT_EQ(std::string(bytes, done), "456");
    EXPECT_EQ(stream->Seek({-2}, STREAM_SEEK_END, &place), S_OK);
    EXPECT_EQ(place.QuadPart, 8u);
    EXPECT_EQ(stream->Read(bytes, 16, &done), S_FALSE);
    EXPECT_EQ(done, 2u);
    EXPECT_EQ(stream->Seek({-20}, STREAM_SEEK_CUR, nullptr), STG_E_SEEKERROR);
    EXPECT_EQ(stream->Seek({0}, 3, nullptr), STG_E_INVALIDFUNCTION);
}

TEST_F(FileStream, keeps_to_its_mode) {
    writeBytes(path, "abc");
    char byte = 0;
    ASSERT_EQ(create(STGM_READ), S_OK);
    EXPECT_EQ(stream->Write("x", 1, nullptr), STG_E_ACCESSDENIED);
    EXPECT_EQ(stream->SetSize({1}), STG_E_ACCESSDENIED);
    stream->Release();
    ASSERT_EQ(create(STGM_WRITE), S_OK);
    EXPECT_EQ(stream->Read(&byte, 1, nullptr), STG_E_ACCESSDENIED);
    EXPECT_EQ(stream->SetSize({1}), S_OK);
    EXPECT_EQ(readBytes(path), "a");
}

TEST_F(FileStream, tells_what_cannot_be_opened) {
    EXPECT_EQ(SHCreateStreamOnFileW(host.c_str(), 0x1001, nullptr), E_POINTER);
    EXPECT_EQ(SHCreateStreamOnFileW(nullptr, 0x1001, &stream), E_INVALIDARG);
    EXPECT_EQ(SHCreateStreamOnFileW(L"", 0x1001, &stream), E_INVALIDARG);
    EXPECT_EQ(SHCreateStreamOnFileW(host.c_str(), 3, &stream), E_INVALIDARG);
    EXPECT_EQ(SHCreateStreamOnFileW((acFromUtf8(folder) + L"\\no\\a.xml").c_str(), 0x1001, &stream), HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(SHCreateStreamOnFileW(acFromUtf8(folder).c_str(), STGM_READ, &stream), HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
    EXPECT_EQ(SHCreateStreamOnFileW(acFromUtf8(folder).c_str(), 0x1001, &stream), HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
    EXPECT_EQ(stream, nullptr);
}

TEST_F(FileStream, tells_a_full_disk) {
    ASSERT_EQ(SHCreateStreamOnFileW(L"\\dev\\full", STGM_WRITE, &stream), S_OK);
    ULONG done = 1;
    EXPECT_EQ(stream->Write("x", 1, &done), STG_E_MEDIUMFULL);
    EXPECT_EQ(done, 0u);
}

TEST_F(FileStream, is_held_by_counted_references_and_found_by_id) {
    ASSERT_EQ(create(0x1001), S_OK);
    for (const IID& iid : {IID_IUnknown, IID_ISequentialStream, IID_IStream}) {
        void* other = nullptr;
        EXPECT_EQ(stream->QueryInterface(iid, &other), S_OK);
        EXPECT_EQ(other, stream);
        EXPECT_EQ(stream->Release(), 1u);
    }
    void* other = stream;
    EXPECT_EQ(stream->QueryInterface(GUID{1, 2, 3, {}}, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(stream->QueryInterface(IID_IStream, nullptr), E_POINTER);
    EXPECT_EQ(stream->AddRef(), 2u);
    EXPECT_EQ(stream->Release(), 1u);
    EXPECT_EQ(stream->Release(), 0u);
    stream = nullptr;
}
