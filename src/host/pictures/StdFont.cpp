#include "host/pictures/StdFont.h"

#include "host/pictures/errornumbers.h"

namespace mox::runtime {

void StdFont::put_Name(const String& value) {
    if (value.empty()) {
        throw RuntimeError(errInvalidProperty);
    }
    change(name_, value, u"Name");
}

void StdFont::put_Size(Currency value) {
    if (value.tenThousandths <= 0) {
        throw RuntimeError(errInvalidProperty);
    }
    change(size_, value, u"Size");
}

void StdFont::put_Bold(Boolean value) {
    change(weight_, value ? boldWeight : normalWeight, u"Bold");
}

void StdFont::put_Weight(Integer value) {
    if (value < 0 || value > 1000) {
        throw RuntimeError(errInvalidProperty);
    }
    change(weight_, value, u"Weight");
}

void StdFont::put_Charset(Integer value) {
    if (value < 0 || value > 255) {
        throw RuntimeError(errInvalidProperty);
    }
    change(charset_, value, u"Charset");
}

} // namespace mox::runtime
