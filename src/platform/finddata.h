// What a search tells of a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace mox::platform {

/// Times are in 100 nanoseconds since 1601-01-01 UTC, the size is in bytes.
struct FindFacts {
    std::uint32_t attributes = 0;
    std::uint64_t created = 0;
    std::uint64_t accessed = 0;
    std::uint64_t written = 0;
    std::uint64_t size = 0;
};

/// Reads of the files of a search what the search itself did not need to know.
class FindDataReader {
public:
    virtual ~FindDataReader() = default;
    /// The bits of `mask` among the attributes of one of the files.
    virtual std::uint32_t attributes(std::size_t file, std::uint32_t mask) = 0;
    virtual FindFacts facts(std::size_t file) = 0;
};

/// One found file. Searches go through many files of which the caller only wants names: so what is costly is read from the disk
/// when it is looked at, and is that of this moment. Of a file that is gone by then, times and size are 0.
///
/// The fields read and write like numbers. `dwFileAttributes & mask` reads only the bits of the mask; that of a folder is always
/// known.
class WIN32_FIND_DATAA {
    struct State {
        FindFacts facts;
        std::uint32_t knownAttributes = ~0u;
        bool isComplete = true;
        std::shared_ptr<FindDataReader> reader;
        std::size_t file = 0;

        std::uint32_t attributes(std::uint32_t mask) {
            if (const std::uint32_t missing = mask & ~knownAttributes; missing != 0) {
                facts.attributes |= reader->attributes(file, missing) & missing;
                knownAttributes |= missing;
            }
            return facts.attributes & mask;
        }
        FindFacts& complete() {
            if (!std::exchange(isComplete, true)) {
                const std::uint32_t known = facts.attributes & knownAttributes;
                facts = reader->facts(file);
                facts.attributes = known | (facts.attributes & ~knownAttributes);
                knownAttributes = ~0u;
            }
            return facts;
        }
    };

    class Attributes {
    public:
        explicit Attributes(State& state) noexcept : state_(state) {}
        Attributes(const Attributes&) = delete;
        Attributes& operator=(const Attributes& other) { return *this = static_cast<std::uint32_t>(other); }
        Attributes& operator=(std::uint32_t attributes) {
            state_.facts.attributes = attributes;
            state_.knownAttributes = ~0u;
            return *this;
        }
        operator std::uint32_t() const { return state_.attributes(~0u); }
        std::uint32_t operator&(std::uint32_t mask) const { return state_.attributes(mask); }

    private:
        State& state_;
    };

    class Number {
    public:
        Number(State& state, std::uint64_t FindFacts::*field) noexcept : state_(state), field_(field) {}
        Number(const Number&) = delete;
        Number& operator=(const Number& other) { return *this = static_cast<std::uint64_t>(other); }
        Number& operator=(std::uint64_t value) {
            state_.complete().*field_ = value;
            return *this;
        }
        operator std::uint64_t() const { return state_.complete().*field_; }

    private:
        State& state_;
        std::uint64_t FindFacts::*field_;
    };

    State state_;

public:
    WIN32_FIND_DATAA() = default;
    WIN32_FIND_DATAA(const WIN32_FIND_DATAA&) = delete;
    WIN32_FIND_DATAA& operator=(const WIN32_FIND_DATAA&) = delete;

    Attributes dwFileAttributes{state_};
    // In 100 nanoseconds since 1601-01-01 UTC.
    Number ftCreationTime{state_, &FindFacts::created};
    Number ftLastAccessTime{state_, &FindFacts::accessed};
    Number ftLastWriteTime{state_, &FindFacts::written};
    Number nFileSize{state_, &FindFacts::size};
    /// A name that the code page does not hold appears as its short name.
    std::string cFileName;

    /// Describes a file of which all is known.
    void describe(const FindFacts& facts) {
        state_.facts = facts;
        state_.knownAttributes = ~0u;
        state_.isComplete = true;
        state_.reader.reset();
    }
    /// Describes a file of which only the bits of `known` among the attributes are known; the rest comes from `reader`, to which
    /// it has the number `file`.
    void describe(std::uint32_t attributes, std::uint32_t known, const std::shared_ptr<FindDataReader>& reader,
                  std::size_t file) {
        state_.facts = {attributes, 0, 0, 0, 0};
        state_.knownAttributes = known;
        state_.isComplete = false;
        state_.file = file;
        if (state_.reader != reader) {
            state_.reader = reader;
        }
    }
};

} // namespace mox::platform
