// How the types of a library are written in C++.
#pragma once

#include "model.h"

namespace idlc {

bool isObject(const Type& type);
bool isRecord(const Type& type);

/// Name of a definition with its library as namespace: `TRL_OBKR_MOX::RECT`.
std::string qualified(const Definition& definition);

/// The type of a slot's argument or of its result, without the pointer of by-reference and result places:
/// `mox::Long`, `BSTR`, `TRL_OBKR_MOX::_moxFS*`, `SAFEARRAY*`.
std::string slotType(const Type& type);

/// The type that owns a value: `mox::String`, `mox::Ref<TRL_OBKR_MOX::_moxFS>`, `mox::Array<mox::Byte>`.
std::string valueType(const Type& type);

/// The slot's function: `raw_get_Tag`, `raw_Refresh`.
std::string slotName(const Member& member);
/// The natural member of a class: `get_Tag`, `Refresh`.
std::string naturalName(const Member& member);

/// A default value in C++, converted to its argument's type where the language would not do it.
std::string literal(const Constant& constant, const Type& type);
/// A number in C++, also the lowest one.
std::string literal(std::int64_t number);
std::string literal(double number);
/// A text in double quotes.
std::string inQuotes(std::string_view text);

/// An enum value's name as an identifier: the few that are none get underscores.
std::string identifier(const std::string& name);

/// A uuid as the initialiser of a GUID.
std::string guidInitialiser(const std::string& uuid);

/// The parameters of a slot, result place last: `mox::Long LngValue, mox::Integer* result`.
std::string slotParameters(const Member& member);

} // namespace idlc
