// Program files for tests: headers, one section, and in it a version resource.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mox::test {

struct ProgramFile {
    /// PE32+ instead of PE32.
    bool isLarge = false;
    bool hasVersion = true;
    std::uint32_t versionMs = 0x0001'0002;
    std::uint32_t versionLs = 0x0003'0004;

    std::string bytes() const {
        constexpr std::uint32_t sectionAddress = 0x1000;
        constexpr std::uint32_t newHeaderAt = 64;
        const std::uint32_t optionalSize = isLarge ? 240 : 224;
        const std::uint32_t sectionAt = newHeaderAt + 24 + optionalSize + 40;
        const std::string resources = section(sectionAddress);
        std::string file = "MZ";
        file.resize(60);
        file += number<4>(newHeaderAt) + std::string("PE\0\0", 4) + number<2>(0x14C) + number<2>(1);
        file += std::string(12, '\0') + number<2>(optionalSize) + number<2>(0x102);
        std::string optional = number<2>(isLarge ? 0x20B : 0x10B);
        optional.resize(isLarge ? 108 : 92);
        optional += number<4>(16) + std::string(16, '\0');
        optional += number<4>(sectionAddress) + number<4>(static_cast<std::uint32_t>(resources.size()));
        optional.resize(optionalSize);
        file += optional + std::string(".rsrc\0\0\0", 8) + number<4>(static_cast<std::uint32_t>(resources.size()));
        file += number<4>(sectionAddress) + number<4>(static_cast<std::uint32_t>(resources.size())) + number<4>(sectionAt);
        return file + std::string(16, '\0') + resources;
    }

private:
    template <std::size_t size> static std::string number(std::uint32_t value) {
        std::string bytes;
        for (std::size_t i = 0; i < size; ++i) {
            bytes += static_cast<char>(value >> (8 * i));
        }
        return bytes;
    }
    static std::string wide(std::u16string_view text) {
        std::string bytes;
        for (const char16_t unit : text) {
            bytes += number<2>(unit);
        }
        return bytes + number<2>(0);
    }
    static std::string padded(std::string bytes) {
        bytes.resize((bytes.size() + 3) / 4 * 4);
        return bytes;
    }
    /// One value of the tree; `children` are padded already.
    static std::string node(std::u16string_view key, bool isText, std::string_view value, std::string_view children = {}) {
        const std::size_t length = isText ? value.size() / 2 : value.size();
        std::string bytes = number<2>(static_cast<std::uint32_t>(length)) + number<2>(isText ? 1 : 0) + wide(key);
        bytes.resize((bytes.size() + 2 + 3) / 4 * 4 - 2);
        bytes += value;
        if (!children.empty()) {
            bytes.resize((bytes.size() + 2 + 3) / 4 * 4 - 2);
            bytes += children;
        }
        return number<2>(static_cast<std::uint32_t>(bytes.size() + 2)) + bytes;
    }

    std::string versionInfo() const {
        std::string fixed = number<4>(0xFEEF04BD) + number<4>(0x10000) + number<4>(versionMs) + number<4>(versionLs);
        fixed.resize(52);
        const std::string texts = padded(node(u"CompanyName", true, wide(u"Caf\u00E9 & Sons"))) +
                                  padded(node(u"Comments", true, wide(u""))) + padded(node(u"Foreign", true, wide(u"\u8868x")));
        const std::string languages = padded(node(u"040904E4", true, {}, texts));
        const std::string children = padded(node(u"StringFileInfo", true, {}, languages)) +
                                     node(u"VarFileInfo", true, {}, node(u"Translation", false, "\x09\x04\xE4\x04"));
        return node(u"VS_VERSION_INFO", false, fixed, children);
    }

    static std::string folder(std::uint32_t named, std::initializer_list<std::pair<std::uint32_t, std::uint32_t>> entries) {
        std::string bytes(12, '\0');
        bytes += number<2>(named) + number<2>(static_cast<std::uint32_t>(entries.size()) - named);
        for (const auto& [name, place] : entries) {
            bytes += number<4>(name) + number<4>(place);
        }
        return bytes;
    }

    /// Kinds (one with a name, icons, versions), then one name and one language of versions, then the data.
    std::string section(std::uint32_t address) const {
        constexpr std::uint32_t isFolder = 0x8000'0000;
        constexpr std::uint32_t namesAt = 40;
        constexpr std::uint32_t languagesAt = namesAt + 24;
        constexpr std::uint32_t dataAt = languagesAt + 24;
        const std::string data = versionInfo();
        const std::uint32_t kind = hasVersion ? 16 : 17;
        return folder(1, {{isFolder | 8, isFolder | namesAt}, {3, isFolder | namesAt}, {kind, isFolder | namesAt}}) +
               folder(0, {{1, isFolder | languagesAt}}) + folder(0, {{0x409, dataAt}}) + number<4>(address + dataAt + 16) +
               number<4>(static_cast<std::uint32_t>(data.size())) + std::string(8, '\0') + data;
    }
};

} // namespace mox::test
