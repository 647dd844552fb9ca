#pragma once

#include "MoxRuntime/PropertyBag.h"

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace mox::runtime {

/// Named values as bytes. Names have no case. An object is kept as it is when it is written, and comes out as a new object.
class PropertyBag final : public Implements<PropertyBag> {
public:
    /// Error 327 for a name that is not there, unless a default is given.
    Variant ReadProperty(const String& name, const Variant& defaultValue) const;
    /// A value of that name is replaced. Error 328 for arrays but those of bytes, 330 for objects other than pictures and fonts.
    void WriteProperty(const String& name, const Variant& value, const Variant& defaultValue);
    Variant get_Contents() const;
    /// Error 13 for what is no array of bytes, 321 for one that `Contents` never gave; the values then stay.
    void put_Contents(const Variant& value);

private:
    struct Property {
        /// As it was written.
        std::u16string name;
        /// What `encodeBagValue` made of the value.
        std::vector<std::byte> value;
    };
    /// By the name in lower case.
    using Properties = std::map<std::u16string, Property>;

    static Properties parse(std::span<const std::byte> bytes);

    Properties properties_;
};

} // namespace mox::runtime
