#pragma once

#include "MoxRuntime/StdFont.h"

namespace mox::runtime {

/// A description of a font. Each change raises FontChanged with the name of the property that was set, inside the call and after
/// the change; setting what is there already raises nothing.
class StdFont final : public Implements<StdFont> {
public:
    String get_Name() const { return name_; }
    /// Error 380 for an empty name.
    void put_Name(const String& value);
    Currency get_Size() const { return size_; }
    /// Error 380 for sizes of 0 and below.
    void put_Size(Currency value);
    Boolean get_Bold() const { return weight_ > heaviestNormal; }
    void put_Bold(Boolean value);
    Boolean get_Italic() const { return isItalic_; }
    void put_Italic(Boolean value) { change(isItalic_, static_cast<bool>(value), u"Italic"); }
    Boolean get_Underline() const { return isUnderlined_; }
    void put_Underline(Boolean value) { change(isUnderlined_, static_cast<bool>(value), u"Underline"); }
    Boolean get_Strikethrough() const { return isStruckOut_; }
    void put_Strikethrough(Boolean value) { change(isStruckOut_, static_cast<bool>(value), u"Strikethrough"); }
    Integer get_Weight() const { return weight_; }
    /// Error 380 outside 0 to 1000.
    void put_Weight(Integer value);
    Integer get_Charset() const { return charset_; }
    /// Error 380 outside 0 to 255.
    void put_Charset(Integer value);

private:
    static constexpr Integer normalWeight = 400;
    static constexpr Integer boldWeight = 700;
    static constexpr Integer heaviestNormal = 550;

    template <class Value> void change(Value& place, Value value, const char16_t* property) {
        if (!(place == value)) {
            place = std::move(value);
            raise_FontChanged(property);
        }
    }

    String name_ = u"MS Sans Serif";
    Currency size_{82500};
    Integer weight_ = normalWeight;
    Integer charset_ = 0;
    bool isItalic_ = false;
    bool isUnderlined_ = false;
    bool isStruckOut_ = false;
};

} // namespace mox::runtime
