// Cuts an IDL file into words, numbers, texts and marks.
#pragma once

#include "model.h"

namespace idlc {

enum class TokenKind { Word, Number, Text, Mark, End };

struct Token {
    TokenKind kind = TokenKind::End;
    /// As written; for a text without its quotes and escapes.
    std::string text;
    Place place;
};

/// All tokens of `source`, with an End token last. Throws `Failure`.
std::vector<Token> tokenize(std::string_view source, const std::string& file);

} // namespace idlc
