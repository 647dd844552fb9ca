#include "values/moxVarByte.h"

#include "core/ansi.h"

namespace mox::server {

String moxVarByte::ConvByteArr2String(const Array<Byte>& ByteArray) {
    return fromAnsi({reinterpret_cast<const char*>(ByteArray.data()), static_cast<std::size_t>(ByteArray.size())});
}

} // namespace mox::server
