// mox-host: what stands behind the machine that programs of the library run on.
#include "host/machine/control.h"

#include <mox/values.h>

#include <nlohmann/json.hpp>

#include <iomanip>
#include <iostream>
#include <string_view>

namespace {

/// The text of the pending error object.
std::string errorText() {
    mox::Ref<IErrorInfo> error;
    mox::String description;
    if (GetErrorInfo(0, error.out()) == S_OK) {
        error->GetDescription(description.out());
    }
    return description.utf8();
}

int doctor() {
    const mox::String request(u"{\"do\": \"doctor\"}");
    mox::String reply;
    if (FAILED(MoxControl(request.get(), reply.out()))) {
        std::cerr << "mox-host: " << errorText() << "\n";
        return 1;
    }
    const auto answer = nlohmann::json::parse(reply.utf8());
    for (const auto& line : answer.at("services")) {
        std::cout << std::left << std::setw(16) << line.at("service").get<std::string>() << line.at("text").get<std::string>()
                  << "\n";
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--doctor") {
        return doctor();
    }
    std::cerr << "usage: mox-host --doctor\n";
    return 2;
}
