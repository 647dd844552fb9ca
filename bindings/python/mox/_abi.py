"""The Automation binary interface in ctypes: structures, constants, calls through tables of functions.

Nothing here loads a library; see ``_platform`` for that.
"""
import ctypes
import struct
import uuid
from ctypes import POINTER, Structure, Union, c_double, c_float, c_int, c_longlong, c_short, c_ubyte, c_uint, c_ushort, c_void_p

(
    VT_EMPTY,
    VT_NULL,
    VT_I2,
    VT_I4,
    VT_R4,
    VT_R8,
    VT_CY,
    VT_DATE,
    VT_BSTR,
    VT_DISPATCH,
    VT_ERROR,
    VT_BOOL,
    VT_VARIANT,
    VT_UNKNOWN,
    VT_DECIMAL,
) = range(15)
(
    VT_I1,
    VT_UI1,
    VT_UI2,
    VT_UI4,
    VT_I8,
    VT_UI8,
    VT_INT,
    VT_UINT,
    VT_VOID,
    VT_HRESULT,
    VT_PTR,
    VT_SAFEARRAY,
    VT_CARRAY,
    VT_USERDEFINED,
) = range(16, 30)
VT_RECORD = 36
VT_ARRAY = 0x2000
VT_BYREF = 0x4000

DISPATCH_METHOD, DISPATCH_GET, DISPATCH_PUT, DISPATCH_PUTREF = 1, 2, 4, 8
DISPID_VALUE, DISPID_PROPERTYPUT, DISPID_NEWENUM = 0, -3, -4
MEMBERID_NIL = -1

TKIND_ENUM, TKIND_RECORD, TKIND_MODULE, TKIND_INTERFACE, TKIND_DISPATCH, TKIND_COCLASS, TKIND_ALIAS = range(7)
TYPEFLAG_CANCREATE = 0x2
FUNCFLAG_HIDDEN = 0x40
IMPLTYPEFLAG_SOURCE = 0x2
PARAMFLAG_OUT, PARAMFLAG_OPT, PARAMFLAG_HASDEFAULT = 0x2, 0x10, 0x20

S_OK = 0
E_NOTIMPL = 0x80004001
E_NOINTERFACE = 0x80004002
E_POINTER = 0x80004003
E_FAIL = 0x80004005
DISP_E_MEMBERNOTFOUND = 0x80020003
DISP_E_PARAMNOTFOUND = 0x80020004
DISP_E_TYPEMISMATCH = 0x80020005
DISP_E_UNKNOWNNAME = 0x80020006
DISP_E_EXCEPTION = 0x80020009
DISP_E_OVERFLOW = 0x8002000A
DISP_E_BADINDEX = 0x8002000B
DISP_E_BADPARAMCOUNT = 0x8002000E
DISP_E_PARAMNOTOPTIONAL = 0x8002000F
TYPE_E_ELEMENTNOTFOUND = 0x8002802B
CO_E_CLASSSTRING = 0x800401F3


def status_of(code):
    """The 32 bits of a status without sign, from a number of either kind."""
    return code & 0xFFFFFFFF


def signed(status):
    """A status as the signed number that functions return."""
    return status - (1 << 32) if status & 0x80000000 else status


class GUID(Structure):
    _fields_ = [("bytes", c_ubyte * 16)]

    @classmethod
    def parse(cls, text):
        """From its text form, with or without braces. ValueError if it is none."""
        return cls.from_buffer_copy(uuid.UUID(text).bytes_le)


IID_NULL = GUID()
IID_IUNKNOWN = GUID.parse("00000000-0000-0000-C000-000000000046")
IID_IDISPATCH = GUID.parse("00020400-0000-0000-C000-000000000046")
IID_CONNECTION_POINT_CONTAINER = GUID.parse("B196B284-BAB4-101A-B69C-00AA00341D07")
IID_ENUM_VARIANT = GUID.parse("00020404-0000-0000-C000-000000000046")


class _RecordValue(Structure):
    _fields_ = [("pvRecord", c_void_p), ("pRecInfo", c_void_p)]


class _Value(Union):
    _fields_ = [
        ("llVal", c_longlong),
        ("lVal", c_int),
        ("iVal", c_short),
        ("bVal", c_ubyte),
        ("fltVal", c_float),
        ("dblVal", c_double),
        ("ulVal", c_uint),
        ("ptr", c_void_p),
        ("record", _RecordValue),
    ]


class VARIANT(Structure):
    _anonymous_ = ("value",)
    _fields_ = [("vt", c_ushort), ("reserved", c_ushort * 3), ("value", _Value)]


#: Where the value of a VARIANT lies in it, and the size of the whole.
VALUE_OFFSET, VARIANT_SIZE = VARIANT.value.offset, ctypes.sizeof(VARIANT)
#: A DECIMAL overlays a VARIANT: scale, sign, high, low and middle 32 bits behind the type.
DECIMAL_LAYOUT = struct.Struct("<xxBBIII")


class DISPPARAMS(Structure):
    _fields_ = [("rgvarg", c_void_p), ("rgdispidNamedArgs", c_void_p), ("cArgs", c_uint), ("cNamedArgs", c_uint)]


class EXCEPINFO(Structure):
    _fields_ = [
        ("wCode", c_ushort),
        ("wReserved", c_ushort),
        ("bstrSource", c_void_p),
        ("bstrDescription", c_void_p),
        ("bstrHelpFile", c_void_p),
        ("dwHelpContext", c_uint),
        ("pvReserved", c_void_p),
        ("pfnDeferredFillIn", c_void_p),
        ("scode", c_int),
    ]


class SAFEARRAYBOUND(Structure):
    _fields_ = [("cElements", c_uint), ("lLbound", c_int)]


class SAFEARRAY(Structure):
    _fields_ = [
        ("cDims", c_ushort),
        ("fFeatures", c_ushort),
        ("cbElements", c_uint),
        ("cLocks", c_uint),
        ("pvData", c_void_p),
        ("rgsabound", SAFEARRAYBOUND * 1),
    ]


class TYPEDESC(Structure):
    pass


class _TypeTarget(Union):
    _fields_ = [("lptdesc", POINTER(TYPEDESC)), ("hreftype", c_uint)]


TYPEDESC._anonymous_ = ("target",)
TYPEDESC._fields_ = [("target", _TypeTarget), ("vt", c_ushort)]


class PARAMDESCEX(Structure):
    _fields_ = [("cBytes", c_uint), ("varDefaultValue", VARIANT)]


class PARAMDESC(Structure):
    _fields_ = [("pparamdescex", POINTER(PARAMDESCEX)), ("wParamFlags", c_ushort)]


class ELEMDESC(Structure):
    _fields_ = [("tdesc", TYPEDESC), ("paramdesc", PARAMDESC)]


class TYPEATTR(Structure):
    _fields_ = [
        ("guid", GUID),
        ("lcid", c_uint),
        ("dwReserved", c_uint),
        ("memidConstructor", c_int),
        ("memidDestructor", c_int),
        ("lpstrSchema", c_void_p),
        ("cbSizeInstance", c_uint),
        ("typekind", c_int),
        ("cFuncs", c_ushort),
        ("cVars", c_ushort),
        ("cImplTypes", c_ushort),
        ("cbSizeVft", c_ushort),
        ("cbAlignment", c_ushort),
        ("wTypeFlags", c_ushort),
        ("wMajorVerNum", c_ushort),
        ("wMinorVerNum", c_ushort),
        ("tdescAlias", TYPEDESC),
        ("dwIdlReserved", c_void_p),
        ("wIDLFlags", c_ushort),
    ]


class FUNCDESC(Structure):
    _fields_ = [
        ("memid", c_int),
        ("lprgscode", c_void_p),
        ("lprgelemdescParam", POINTER(ELEMDESC)),
        ("funckind", c_int),
        ("invkind", c_int),
        ("callconv", c_int),
        ("cParams", c_short),
        ("cParamsOpt", c_short),
        ("oVft", c_short),
        ("cScodes", c_short),
        ("elemdescFunc", ELEMDESC),
        ("wFuncFlags", c_ushort),
    ]


class _VariableValue(Union):
    _fields_ = [("oInst", c_uint), ("lpvarValue", POINTER(VARIANT))]


class VARDESC(Structure):
    _anonymous_ = ("content",)
    _fields_ = [
        ("memid", c_int),
        ("lpstrSchema", c_void_p),
        ("content", _VariableValue),
        ("elemdescVar", ELEMDESC),
        ("wVarFlags", c_ushort),
        ("varkind", c_int),
    ]


class TLIBATTR(Structure):
    _fields_ = [
        ("guid", GUID),
        ("lcid", c_uint),
        ("syskind", c_int),
        ("wMajorVerNum", c_ushort),
        ("wMinorVerNum", c_ushort),
        ("wLibFlags", c_ushort),
    ]


class Slot:
    """One function of an interface: called with an interface pointer, it goes through that pointer's table."""

    __slots__ = ("offset", "prototype", "known")

    def __init__(self, index, *argtypes, restype=c_int):
        self.offset = index * ctypes.sizeof(c_void_p)
        self.prototype = ctypes.CFUNCTYPE(restype, c_void_p, *argtypes)
        self.known = {}

    def of(self, pointer):
        """The function itself, for calls that have to be quick."""
        address = c_void_p.from_address(c_void_p.from_address(pointer).value + self.offset).value
        function = self.known.get(address)
        if function is None:
            function = self.known[address] = self.prototype(address)
        return function

    def __call__(self, pointer, *arguments):
        return self.of(pointer)(pointer, *arguments)


_guid, _pointer = POINTER(GUID), POINTER(c_void_p)

query_interface = Slot(0, _guid, _pointer)
add_ref = Slot(1, restype=c_uint)
release = Slot(2, restype=c_uint)


class DispatchTable(Structure):
    """The functions of IDispatch by their addresses."""

    _fields_ = [
        (name, c_void_p)
        for name in ("QueryInterface", "AddRef", "Release", "GetTypeInfoCount", "GetTypeInfo", "GetIDsOfNames", "Invoke")
    ]


class Dispatch:
    GetTypeInfo = Slot(4, c_uint, c_uint, _pointer)


class ErrorInfo:
    GetSource = Slot(4, _pointer)
    GetDescription = Slot(5, _pointer)


class TypeInfo:
    GetTypeAttr = Slot(3, POINTER(POINTER(TYPEATTR)))
    GetFuncDesc = Slot(5, c_uint, POINTER(POINTER(FUNCDESC)))
    GetVarDesc = Slot(6, c_uint, POINTER(POINTER(VARDESC)))
    GetNames = Slot(7, c_int, _pointer, c_uint, POINTER(c_uint))
    GetRefTypeOfImplType = Slot(8, c_uint, POINTER(c_uint))
    GetImplTypeFlags = Slot(9, c_uint, POINTER(c_int))
    GetDocumentation = Slot(12, c_int, _pointer, _pointer, c_void_p, c_void_p)
    GetRefTypeInfo = Slot(14, c_uint, _pointer)
    GetContainingTypeLib = Slot(18, _pointer, POINTER(c_uint))
    ReleaseTypeAttr = Slot(19, c_void_p, restype=None)
    ReleaseFuncDesc = Slot(20, c_void_p, restype=None)
    ReleaseVarDesc = Slot(21, c_void_p, restype=None)


class TypeLib:
    GetTypeInfoCount = Slot(3, restype=c_uint)
    GetTypeInfo = Slot(4, c_uint, _pointer)
    GetLibAttr = Slot(7, POINTER(POINTER(TLIBATTR)))
    GetDocumentation = Slot(9, c_int, _pointer, _pointer, c_void_p, c_void_p)
    ReleaseTLibAttr = Slot(12, c_void_p, restype=None)


class RecordInfo:
    RecordCopy = Slot(5, c_void_p, c_void_p)
    GetGuid = Slot(6, _guid)
    PutField = Slot(12, c_uint, c_void_p, ctypes.c_char_p, POINTER(VARIANT))
    RecordCreate = Slot(16, restype=c_void_p)
    RecordCreateCopy = Slot(17, c_void_p, _pointer)
    RecordDestroy = Slot(18, c_void_p)


class ConnectionPointContainer:
    FindConnectionPoint = Slot(4, _guid, _pointer)


class ConnectionPoint:
    Advise = Slot(5, c_void_p, POINTER(c_uint))
    Unadvise = Slot(6, c_uint)


class EnumVariant:
    Next = Slot(3, c_uint, POINTER(VARIANT), POINTER(c_uint))
