// pixels_to_bmp PIXELS BMP: turns a picture of letters into a 24-bit bitmap. The file holds lines
// "letter RRGGBB" for the colours, an empty line, and the rows of the picture.
#include <cstdint>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace {

void put(std::string& out, std::uint64_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

std::string bitmap(const std::vector<std::string>& rows, std::map<char, std::uint32_t>& colors) {
    const auto width = static_cast<std::uint32_t>(rows.front().size());
    const auto height = static_cast<std::uint32_t>(rows.size());
    const std::uint32_t stride = (width * 3 + 3) / 4 * 4;
    std::string out = "BM";
    put(out, 54 + stride * height, 4);
    put(out, 0, 4);
    put(out, 54, 4);
    put(out, 40, 4);
    put(out, width, 4);
    put(out, height, 4);
    put(out, 1, 2);
    put(out, 24, 2);
    put(out, 0, 4);
    put(out, stride * height, 4);
    put(out, 2835, 4); // 72 dots an inch
    put(out, 2835, 4);
    put(out, 0, 8);
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        for (const char c : *row)
            put(out, colors[c], 3);
        out.append(stride - width * 3, '\0');
    }
    return out;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    std::ifstream in(argv[1]);
    std::map<char, std::uint32_t> colors;
    std::vector<std::string> rows;
    std::string line;
    while (std::getline(in, line) && !line.empty())
        colors[line[0]] = static_cast<std::uint32_t>(std::stoul(line.substr(2), nullptr, 16));
    while (std::getline(in, line))
        if (rows.empty() || line.size() == rows.front().size())
            rows.push_back(line);
    if (rows.empty()) {
        std::cerr << argv[1] << " holds no picture\n";
        return 1;
    }
    std::ofstream out(argv[2], std::ios::binary);
    const std::string bytes = bitmap(rows, colors);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return out.good() ? 0 : 1;
}
