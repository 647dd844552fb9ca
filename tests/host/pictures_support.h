// What tests of the run-time objects share.
#pragma once

#include "support/invoke.h"
#include "support/testmachine.h"

#include "automation/objects/apartment.h"

#include <mox/runtime.h>

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>

namespace mox::test {

/// A machine with a thread that may create objects. Objects of a test end before its machine.
struct PicturesTest : testing::Test {
    PicturesTest() { client::joinApartment(); }

    TestMachine machine;

    static platform::PICTDESC describe(std::uint32_t type, platform::Handle handle, std::int32_t hpal = 0) {
        return {16, type, handle, hpal};
    }
    /// The picture, empty if it cannot be made.
    StdPicture makePicture(const platform::PICTDESC& description, bool owns, HRESULT& status) {
        void* object = nullptr;
        status = machine->oleaut32.OleCreatePictureIndirect(description, interfaceId<MoxRuntime::IPictureDisp>, owns, &object);
        return StdPicture(Ref<MoxRuntime::IPictureDisp>::attach(static_cast<MoxRuntime::IPictureDisp*>(object)));
    }
    StdPicture makePicture(const platform::PICTDESC& description, bool owns = true) {
        HRESULT status = S_OK;
        StdPicture picture = makePicture(description, owns, status);
        EXPECT_EQ(status, S_OK);
        return picture;
    }
    platform::Handle addBitmap(int width, int height) { return machine->graphics.add(host::Bitmap::create(width, height)); }
    platform::Handle addIcon(int width, int height) {
        return machine->graphics.add("icon", host::Icon{.image = host::Bitmap::create(width, height), .hasAlpha = true});
    }
    std::size_t openHandles() const {
        std::size_t all = 0;
        for (const auto& [kind, count] : const_cast<TestMachine&>(machine)->handles.count()) {
            all += count;
        }
        return all;
    }
};

/// The bytes of an enhanced metafile with nothing in it but its header and its end.
inline std::vector<std::byte> emptyMetafile(platform::RECT frame) {
    const std::int32_t words[] = {1,          100,     0,   0, 0, 0,  frame.left, frame.top, frame.right, frame.bottom,
                                  0x464D4520, 0x10000, 120, 2, 1, 0,  0,          0,         1024,        768,
                                  320,        240,     0,   0, 0, 14, 20,         0,         0,           20};
    std::vector<std::byte> bytes(sizeof words);
    std::memcpy(bytes.data(), words, sizeof words);
    return bytes;
}

} // namespace mox::test
