// The work of the bitmap filters as OpenCV does it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace mox::bench {

struct ComparedWork {
    /// The filter that does the same, or as much.
    std::string filter;
    std::function<void()> run;
};

/// On a picture of so many pixels, with one thread. Empty if the program was built without OpenCV.
std::vector<ComparedWork> opencvWork(std::uint32_t* source, std::uint32_t* target, int width, int height);

} // namespace mox::bench
