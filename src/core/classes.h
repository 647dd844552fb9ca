// Making the library's objects, without knowing their classes.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"
#include "automation/objects/apartment.h"
#include "automation/objects/module.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// This file's description and class table.
const ServerModule& serverModule();

/// A new object of the class whose default interface is `Interface`. Error 445 if the class has no code.
template <class Interface> Ref<Interface> create() {
    // The table makes objects under their default interface.
    return Ref<Interface>::attach(static_cast<Interface*>(serverModule().create(typelib::classOf<Interface>).detach()));
}

/// The child in a parent's field, created when it is first asked for.
template <class Interface> Ref<Interface> child(Ref<Interface>& field) {
    if (!field) {
        field = create<Interface>();
    }
    return field;
}

/// The calling apartment's copy of a private module's variables, zeroed at first use.
template <class State> State& moduleState() {
    return Apartment::state<State>(&serverModule());
}

} // namespace mox::server
