#include "automation/objects/runtimeerror.h"

#include <algorithm>
#include <array>
#include <new>
#include <string>

namespace mox {

namespace {

struct ErrorText {
    Long number;
    std::u16string_view text;
};

// The numbers and texts are those that Visual Basic clients know.
constexpr std::array errorTexts{
    ErrorText{3, u"Return without GoSub"},
    ErrorText{5, u"Invalid procedure call or argument"},
    ErrorText{6, u"Overflow"},
    ErrorText{7, u"Out of memory"},
    ErrorText{9, u"Subscript out of range"},
    ErrorText{10, u"This array is fixed or temporarily locked"},
    ErrorText{11, u"Division by zero"},
    ErrorText{13, u"Type mismatch"},
    ErrorText{14, u"Out of string space"},
    ErrorText{16, u"Expression too complex"},
    ErrorText{17, u"Can't perform requested operation"},
    ErrorText{28, u"Out of stack space"},
    ErrorText{48, u"Error in loading DLL"},
    ErrorText{49, u"Bad DLL calling convention"},
    ErrorText{51, u"Internal error"},
    ErrorText{52, u"Bad file name or number"},
    ErrorText{53, u"File not found"},
    ErrorText{54, u"Bad file mode"},
    ErrorText{55, u"File already open"},
    ErrorText{57, u"Device I/O error"},
    ErrorText{58, u"File already exists"},
    ErrorText{61, u"Disk full"},
    ErrorText{62, u"Input past end of file"},
    ErrorText{63, u"Bad record number"},
    ErrorText{67, u"Too many files"},
    ErrorText{68, u"Device unavailable"},
    ErrorText{70, u"Permission denied"},
    ErrorText{71, u"Disk not ready"},
    ErrorText{74, u"Can't rename with different drive"},
    ErrorText{75, u"Path/File access error"},
    ErrorText{76, u"Path not found"},
    ErrorText{91, u"Object variable or With block variable not set"},
    ErrorText{92, u"For loop not initialized"},
    ErrorText{94, u"Invalid use of Null"},
    ErrorText{321, u"Invalid file format"},
    ErrorText{380, u"Invalid property value"},
    ErrorText{381, u"Invalid property array index"},
    ErrorText{424, u"Object required"},
    ErrorText{429, u"ActiveX component can't create object"},
    ErrorText{430, u"Class does not support Automation or does not support expected interface"},
    ErrorText{438, u"Object doesn't support this property or method"},
    ErrorText{440, u"Automation error"},
    ErrorText{445, u"Object doesn't support this action"},
    ErrorText{446, u"Object doesn't support named arguments"},
    ErrorText{448, u"Named argument not found"},
    ErrorText{449, u"Argument not optional"},
    ErrorText{450, u"Wrong number of arguments or invalid property assignment"},
    ErrorText{453, u"Specified DLL function not found"},
    ErrorText{458, u"Variable uses an Automation type not supported in Visual Basic"},
    ErrorText{481, u"Invalid picture"},
    ErrorText{482, u"Printer error"},
};
static_assert(std::ranges::is_sorted(errorTexts, {}, &ErrorText::number));

/// The run-time error that a failing status of the Automation layer stands for.
Long numberOfStatus(HRESULT status) {
    switch (status) {
    case DISP_E_TYPEMISMATCH:
    case DISP_E_BADVARTYPE:
        return errTypeMismatch;
    case DISP_E_OVERFLOW:
        return errOverflow;
    case DISP_E_BADINDEX:
        return errSubscript;
    case DISP_E_ARRAYISLOCKED:
        return 10;
    case DISP_E_DIVBYZERO:
        return errDivisionByZero;
    case E_OUTOFMEMORY:
        return errOutOfMemory;
    case E_INVALIDARG:
    case E_POINTER:
        return errInvalidCall;
    default:
        return 440;
    }
}

void setErrorObject(std::u16string_view description, const typelib::ClassDescription& source) {
    Ref<ICreateErrorInfo> error;
    succeed(CreateErrorInfo(error.out()));
    std::u16string name = std::u16string(source.library.name) + u"." + source.name;
    std::u16string text(description);
    succeed(error->SetGUID(source.defaultInterface ? source.defaultInterface->id : GUID_NULL));
    succeed(error->SetSource(name.data()));
    succeed(error->SetDescription(text.data()));
    SetErrorInfo(0, error.as<IErrorInfo>().get());
}

} // namespace

std::u16string_view textOfRuntimeError(Long number) noexcept {
    const auto found = std::ranges::lower_bound(errorTexts, number, {}, &ErrorText::number);
    return found != errorTexts.end() && found->number == number ? found->text : u"Application-defined or object-defined error";
}

std::u16string_view RuntimeError::description() const noexcept {
    return description_.empty() ? textOfRuntimeError(number_) : description_.view();
}

HRESULT reportCurrentException(const typelib::ClassDescription& source) noexcept {
    HRESULT status = E_FAIL;
    try {
        try {
            throw;
        } catch (const RuntimeError& error) {
            status = statusOfRuntimeError(error.number());
            setErrorObject(error.description(), source);
        } catch (const StatusError& error) {
            status = error.status();
            setErrorObject(textOfRuntimeError(numberOfStatus(status)), source);
        } catch (const std::bad_alloc&) {
            status = E_OUTOFMEMORY;
            setErrorObject(textOfRuntimeError(errOutOfMemory), source);
        } catch (...) {
            status = statusOfRuntimeError(errInternal);
            setErrorObject(textOfRuntimeError(errInternal), source);
        }
        return status;
    } catch (...) {
        return reportPlainStatus(status); // no memory for the error object
    }
}

HRESULT reportPlainStatus(HRESULT status) noexcept {
    SetErrorInfo(0, nullptr);
    return status;
}

} // namespace mox
