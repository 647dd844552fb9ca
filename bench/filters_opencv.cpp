#include "filters_opencv.h"

#if defined(MOX_OPENCV)
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace mox::bench {

#if defined(MOX_OPENCV)

std::vector<ComparedWork> opencvWork(std::uint32_t* source, std::uint32_t* target, int width, int height) {
    cv::setNumThreads(1);
    const cv::Mat from(height, width, CV_8UC4, source);
    const cv::Mat to(height, width, CV_8UC4, target);
    const cv::Mat grey(height, width, CV_8UC1);
    cv::Mat table(1, 256, CV_8UC1);
    for (int i = 0; i < 256; ++i) {
        table.at<unsigned char>(i) = static_cast<unsigned char>(i / 2 + 64);
    }
    const cv::Mat slope = (cv::Mat_<float>(3, 3) << -1, 0, 0, 0, 0, 0, 0, 0, 1);
    const cv::Mat hls(height, width, CV_8UC3);
    const auto lookUp = [=] { cv::LUT(from, table, to); };
    return {
        {"Invert", [=] { cv::bitwise_xor(from, cv::Scalar(255, 255, 255, 0), to); }},
        {"RGB", [=] { cv::add(from, cv::Scalar(30, 20, 10, 0), to); }},
        {"GrayScale",
         [=] {
             cv::cvtColor(from, grey, cv::COLOR_BGRA2GRAY);
             cv::cvtColor(grey, to, cv::COLOR_GRAY2BGRA);
         }},
        {"BlackAndWhite",
         [=] {
             cv::cvtColor(from, grey, cv::COLOR_BGRA2GRAY);
             cv::threshold(grey, grey, 127, 255, cv::THRESH_BINARY);
             cv::cvtColor(grey, to, cv::COLOR_GRAY2BGRA);
         }},
        {"Emboss", [=] { cv::filter2D(from, to, -1, slope, cv::Point(-1, -1), 127); }},
        {"Brightness", lookUp},
        {"Contrast", lookUp},
        {"Neon", lookUp}, // without the shifts by place
        {"HSL",
         [=] {
             cv::cvtColor(from, hls, cv::COLOR_BGR2HLS_FULL);
             cv::multiply(hls, cv::Scalar(1, 1.5, 1), hls);
             cv::cvtColor(hls, to, cv::COLOR_HLS2BGR_FULL, 4);
         }},
    };
}

#else

std::vector<ComparedWork> opencvWork(std::uint32_t*, std::uint32_t*, int, int) {
    return {};
}

#endif

} // namespace mox::bench
