// A program that knows nothing but a name: it creates an object by it and says what library version the object reports.
#include <mox/client/object.h>

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2 || FAILED(CoInitialize(nullptr))) {
        return 2;
    }
    const std::u16string name = mox::utf16FromUtf8(argv[1]);
    CLSID id{};
    if (const HRESULT status = CLSIDFromProgID(name.c_str(), &id); FAILED(status)) {
        std::printf("no class: %08X\n", static_cast<unsigned>(status));
        return 1;
    }
    void* created = nullptr;
    if (const HRESULT status = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &created); FAILED(status)) {
        std::printf("no object: %08X\n", static_cast<unsigned>(status));
        return 1;
    }
    const auto object = mox::Ref<IDispatch>::attach(static_cast<IDispatch*>(created));
    std::u16string member = u"ExtensionInfo";
    LPOLESTR members = member.data();
    DISPID number = 0;
    mox::Variant version;
    mox::Variant argument(mox::Long{25});
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    if (FAILED(object->GetIDsOfNames(GUID_NULL, &members, 1, 0, &number)) ||
        FAILED(object->Invoke(number, GUID_NULL, 0, DISPATCH_PROPERTYGET, &parameters, version.out(), nullptr, nullptr))) {
        std::printf("no version\n");
        return 1;
    }
    std::printf("version %s\n", version.as<mox::String>().utf8().c_str());
    return 0;
}
