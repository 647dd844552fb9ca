// The vector instructions that pixel routines have forms for.
#pragma once

namespace mox::server {

/// Each level includes the ones before it. `none` is the plain form of a routine, which states its rule.
enum class Vectors { none, avx2, avx512 };

/// The highest level of the processor that this runs on.
Vectors bestVectors() noexcept;

} // namespace mox::server
