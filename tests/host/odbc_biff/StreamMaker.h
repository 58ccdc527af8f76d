// Makes the stream of a foreign workbook record by record, for what the writer never writes.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

class Bytes {
public:
    template <class T> Bytes& add(T value) {
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        mBytes.append(bytes, sizeof value);
        return *this;
    }
    Bytes& u8(unsigned value) { return add(static_cast<std::uint8_t>(value)); }
    Bytes& u16(unsigned value) { return add(static_cast<std::uint16_t>(value)); }
    Bytes& u32(std::uint32_t value) { return add(value); }
    Bytes& f64(double value) { return add(value); }
    Bytes& raw(std::string_view bytes) {
        mBytes += bytes;
        return *this;
    }
    const std::string& get() const { return mBytes; }

private:
    std::string mBytes;
};

// Globals of the records given, then one worksheet a list of records given.
class StreamMaker {
public:
    void global(std::uint16_t id, const Bytes& body) { mGlobals += record(id, body.get()); }
    // Begins a sheet; `kind` 0x0010 is a worksheet, 0x0020 a chart.
    void sheet(const std::string& name, std::uint16_t kind = 0x0010) {
        mNames.push_back(name);
        mKinds.push_back(kind);
        mSheets.push_back(record(0x0809, bof(kind)));
    }
    void cell(std::uint16_t id, const Bytes& body) { mSheets.back() += record(id, body.get()); }
    void number(unsigned row, unsigned column, double value, unsigned format = 0) { cell(0x0203, Bytes().u16(row).u16(column).u16(format).f64(value)); }
    void label(unsigned row, unsigned column, std::string_view latin) {
        cell(0x0204, Bytes().u16(row).u16(column).u16(0).u16(static_cast<unsigned>(latin.size())).u8(0).raw(latin));
    }
    std::string stream() const {
        std::string head = record(0x0809, bof(0x0005)) + mGlobals;
        std::size_t place = head.size() + 4;
        for (const std::string& name : mNames)
            place += 12 + name.size();
        std::string tail;
        for (std::size_t i = 0; i < mSheets.size(); ++i) {
            Bytes body;
            body.u32(static_cast<std::uint32_t>(place + tail.size())).u8(0).u8(mKinds[i] == 0x0020 ? 2 : 0).u8(static_cast<unsigned>(mNames[i].size())).u8(0).raw(mNames[i]);
            head += record(0x0085, body.get());
            tail += mSheets[i] + record(0x000A, "");
        }
        return head + record(0x000A, "") + tail;
    }
    static std::string record(std::uint16_t id, const std::string& body) {
        return Bytes().u16(id).u16(static_cast<unsigned>(body.size())).raw(body).get();
    }
    static std::string bof(unsigned kind) { return Bytes().u16(0x0600).u16(kind).u16(0).u16(1997).u32(0).u32(6).get(); }

private:
    std::string mGlobals;
    std::vector<std::string> mNames, mSheets;
    std::vector<std::uint16_t> mKinds;
};
