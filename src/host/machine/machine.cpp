#include "host/machine/machine.h"

#include "host/files/wire_files.h"
#include "host/graphics/wire_graphics.h"
#include "host/machine/wiring.h"
#include "host/processes/wire_processes.h"
#include "host/registry/wire_registry.h"
#include "host/shell/wire_shell.h"

#include "automation/objects/apartment.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <stdexcept>
#include <utility>

namespace mox::host {

namespace {

std::atomic<Machine*> present = nullptr;
std::mutex configurationGuard;
std::optional<MachineConfig> configuration;
bool isMade = false;

MachineConfig completed(MachineConfig config, const std::optional<TemporaryFolder>& temporaryHome) {
    if (temporaryHome) {
        config.home = temporaryHome->path();
        config.isDurable = false;
        config.iconFolders.clear();
        if (config.trash.empty()) {
            config.trash = config.home / "trash";
        }
    }
    if (!config.clock) {
        config.clock = std::make_shared<Clock>();
    }
    return config;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    constexpr auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

} // namespace

Machine::Machine(MachineConfig config)
    : temporaryHome_(config.home.empty() ? std::optional<TemporaryFolder>(std::in_place, "mox-") : std::nullopt),
      config_(completed(std::move(config), temporaryHome_)), codePage(config_.codePage), files(config_, codePage),
      registry(registryFacts(*this), config_.home / "registry.sqlite",
               config_.isDurable ? Durability::system : Durability::process, codePage, handles),
      messageLoops(config_.clock), desktop(handles), fonts(codePage), graphics(handles, desktop, fonts), icons(graphics, config_),
      shellIcons(handles, icons, config_) {
    wireKernel32(*this);
    wirePsapi(*this);
    wireRuntime(*this);
    wireUser32(*this);
    wireFiles(*this);
    wireOpenFiles(*this);
    wireFileContents(*this);
    wireProcesses(*this);
    wireRegistry(*this);
    wireShell(*this);
    wireContexts(*this);
    wireShapes(*this);
    wireCopies(*this);
    wireText(*this);
    wireIcons(*this);
    wireMetafiles(*this);
    wireDesktop(*this);
    wirePictures(*this);
}

Machine::~Machine() {
    Apartment::dropStates(this);
}

Machine& Machine::current() {
    if (Machine* machine = present.load(std::memory_order_acquire)) [[likely]] {
        return *machine;
    }
    static Machine* const own = [] {
        const std::lock_guard lock(configurationGuard);
        auto machine = std::make_unique<Machine>(configuration ? *configuration : MachineConfig::fromEnvironment());
        // Relative paths go on from where the user is.
        std::error_code error;
        machine->files.setCurrentFolder(machine->files.toDrivePath(std::filesystem::current_path(error)));
        isMade = true;
        return machine.release();
    }();
    struct TemporaryHomeEnd {
        Machine& machine;
        ~TemporaryHomeEnd() { machine.temporaryHome_.reset(); }
    };
    static const TemporaryHomeEnd end{*own};
    Machine* none = nullptr;
    return present.compare_exchange_strong(none, own) ? *own : *none;
}

void Machine::configure(MachineConfig config) {
    const std::lock_guard lock(configurationGuard);
    if (isMade || present.load()) {
        throw std::logic_error("the machine is in use already; it has to be configured before");
    }
    configuration = std::move(config);
}

Machine* Machine::exchange(Machine* machine) noexcept {
    return present.exchange(machine);
}

std::array<const platform::SystemLibrary*, 13> Machine::libraries() const noexcept {
    return {&advapi32, &comctl32, &gdi32,   &kernel32, &msimg32, &ntdll,  &oleaut32,
            &psapi,    &runtime,  &shell32, &user32,   &uxtheme, &version};
}

platform::OperationBase* Machine::findOperation(std::string_view fullName) {
    for (const platform::SystemLibrary* library : libraries()) {
        for (platform::OperationBase* operation : library->operations()) {
            if (equalIgnoringCase(operation->fullName(), fullName)) {
                return operation;
            }
        }
    }
    return nullptr;
}

} // namespace mox::host
