// A machine with the drawing services, and surfaces that tests look at.
#pragma once

#include "support/bothways.h"
#include "support/faultsweep.h"
#include "support/testmachine.h"

#include "automation/objects/apartment.h"
#include "core/classes.h"

#include <mox/mox.h>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace mox::test {

/// A machine that reports this version of the system, and the entry to drawing.
struct DrawingOn {
    explicit DrawingOn(host::WindowsVersion windows = {}, bool visualStyle = false)
        : machine([&] {
              host::MachineConfig config;
              config.windows = std::move(windows);
              config.visualStyle = visualStyle;
              Apartment::endCurrent(); // it may have heard of another machine
              return config;
          }()) {}

    moxOffscreenBuffer buffer(Long cx, Long cy, Long color = 0xFFFFFF) { return drawing.CreateOffscreenBuffer(cx, cy, color); }
    Long pixel(Long hdc, Long x, Long y) { return static_cast<Long>(machine->gdi32.GetPixel(hdc, x, y)); }

    /// The pixels of an area, one letter each: those of `letters`, "?" for any other colour.
    std::vector<std::string> rows(Long hdc, Long cx, Long cy, const std::map<Long, char>& letters) {
        std::vector<std::string> result;
        for (Long y = 0; y < cy; ++y) {
            std::string row;
            for (Long x = 0; x < cx; ++x) {
                const auto found = letters.find(pixel(hdc, x, y));
                row += found == letters.end() ? '?' : found->second;
            }
            result.push_back(row);
        }
        return result;
    }

    /// A picture of one letter a pixel, as `rows` reads it.
    StdPicture picture(const std::vector<std::string>& drawn, const std::map<Long, char>& letters) {
        const moxOffscreenBuffer ground = buffer(static_cast<Long>(drawn[0].size()), static_cast<Long>(drawn.size()));
        for (const auto& [color, letter] : letters) {
            for (std::size_t y = 0; y < drawn.size(); ++y) {
                for (std::size_t x = 0; x < drawn[y].size(); ++x) {
                    if (drawn[y][x] == letter) {
                        machine->gdi32.SetPixel(ground.hDC(), static_cast<Long>(x), static_cast<Long>(y),
                                                static_cast<platform::COLORREF>(color));
                    }
                }
            }
        }
        return ground.CreateOlePicture();
    }

    TestMachine machine;
    moxDrawing drawing{server::create<TRL_OBKR_MOX::_moxDrawing>()};
};

class DrawingTest : public testing::Test, protected DrawingOn {};

inline const std::map<Long, char> usualLetters{{0xFFFFFF, '.'}, {0x000000, '#'}, {0x0000FF, 'r'},
                                               {0x00FF00, 'g'}, {0xFF0000, 'b'}, {0xFF00FF, 'm'}};

} // namespace mox::test
