// A list of facts while it is made.
#pragma once

#include "host/registry/registryfact.h"
#include "host/text/codepage.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mox::host {

class FactList {
public:
    explicit FactList(const CodePage& codePage) : codePage_(codePage) {}

    /// Where the facts that follow belong.
    void in(RegistryFact::Root root, std::string path);
    /// UTF-8. Nothing comes of an empty text: it is what the machine does not tell.
    void text(std::string_view name, std::string_view text);
    void texts(std::string_view name, std::string_view only);
    void emptyText(std::string_view name);
    /// Bytes of the code page.
    void path(std::string_view name, std::string_view path);
    void number(std::string_view name, std::uint32_t number);

    const std::vector<RegistryFact>& facts() const noexcept { return facts_; }

private:
    void add(std::string_view name, std::uint32_t type, std::string data);

    const CodePage& codePage_;
    RegistryFact::Root root_ = RegistryFact::Root::localMachine;
    std::string path_;
    std::vector<RegistryFact> facts_;
};

} // namespace mox::host
