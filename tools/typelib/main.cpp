// Prints the type library of a server file: mox-typelib [--json] [FILE]. Everything is read through ITypeLib and ITypeInfo, as
// any other program would.
#include "dump.h"

#include <mox/client/error.h>

#include <cstdio>
#include <string>

namespace {

/// The server's own type library, or that of a named file.
mox::Ref<ITypeLib> load(const std::string& file) {
    mox::Ref<ITypeLib> library;
    if (!file.empty()) {
        mox::client::succeed(LoadTypeLib(mox::utf16FromUtf8(file).c_str(), library.out()));
        return library;
    }
    mox::client::succeed(CoInitialize(nullptr));
    CLSID id;
    mox::client::succeed(CLSIDFromProgID(u"TRL_OBKR_MOX.moxHub", &id));
    mox::Ref<IDispatch> hub;
    mox::client::succeed(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, reinterpret_cast<void**>(hub.out())));
    mox::Ref<ITypeInfo> type;
    mox::client::succeed(hub->GetTypeInfo(0, 0, type.out()));
    UINT index = 0;
    mox::client::succeed(type->GetContainingTypeLib(library.out(), &index));
    return library;
}

} // namespace

int main(int argc, char** argv) {
    bool json = false;
    std::string file;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--json") {
            json = true;
        } else if (word.starts_with("-") || !file.empty()) {
            std::fputs("usage: mox-typelib [--json] [SERVER-FILE]\n", stderr);
            return 2;
        } else {
            file = word;
        }
    }
    try {
        const nlohmann::ordered_json dump = mox::tools::dumpLibrary(*load(file));
        std::puts(json ? dump.dump(1).c_str() : mox::tools::outline(dump).c_str());
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mox-typelib: %s\n", error.what());
        return 1;
    }
}
