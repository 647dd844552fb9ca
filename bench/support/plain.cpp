#include "plain.h"

namespace mox::bench {

namespace {

class PlainValue final : public Plain {
public:
    std::int32_t get(std::int32_t* result) override {
        *result = value_;
        return 0;
    }

private:
    std::int32_t value_ = 10;
};

} // namespace

std::unique_ptr<Plain> makePlain() {
    return std::make_unique<PlainValue>();
}

} // namespace mox::bench
