// The system and its folders, as the registry states them.
#pragma once

#include "automation/objects/export.h"
#include "host/files/files.h"
#include "host/machine/machineconfig.h"
#include "host/registry/factlist.h"

namespace mox::host {

/// The name of the product that reports this version, without its edition.
MOX_API std::string productName(const WindowsVersion& version);

/// Adds the branches `CurrentVersion` of Windows and Windows NT.
void addSystemFacts(FactList& facts, const WindowsVersion& version, const Files& files);

/// Adds the folders of the user and of all users, as far as they exist.
void addShellFolders(FactList& facts, const Files& files);

} // namespace mox::host
