#include "lexer.h"

#include <cctype>

namespace idlc {

namespace {

bool isWordStart(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) || c == '_';
}

bool isWordPart(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

class Lexer {
public:
    Lexer(std::string_view source, const std::string& file) : source_(source), place_{file, 1} {}

    std::vector<Token> run() {
        std::vector<Token> tokens;
        do {
            skipBlanksAndComments();
            tokens.push_back(next());
        } while (tokens.back().kind != TokenKind::End);
        return tokens;
    }

private:
    char peek(std::size_t ahead = 0) const { return position_ + ahead < source_.size() ? source_[position_ + ahead] : '\0'; }

    char take() {
        const char c = source_[position_++];
        place_.line += c == '\n';
        return c;
    }

    void skipBlanksAndComments() {
        for (;;) {
            if (std::isspace(static_cast<unsigned char>(peek()))) {
                take();
            } else if (peek() == '/' && peek(1) == '/') {
                while (position_ < source_.size() && peek() != '\n') {
                    take();
                }
            } else if (peek() == '/' && peek(1) == '*') {
                const Place start = place_;
                while (!(peek() == '*' && peek(1) == '/')) {
                    if (position_ >= source_.size()) {
                        throw Failure(start, "comment without an end");
                    }
                    take();
                }
                take();
                take();
            } else {
                return;
            }
        }
    }

    Token next() {
        Token token{TokenKind::End, {}, place_};
        if (position_ >= source_.size()) {
            return token;
        }
        const char c = peek();
        if (c == '"') {
            token.kind = TokenKind::Text;
            token.text = text();
        } else if (c == '[' && isBracketedName()) {
            token.kind = TokenKind::Word;
            token.text = enclosed(']');
        } else if (c == '(' && afterUuid_) {
            token.kind = TokenKind::Text;
            token.text = enclosed(')');
        } else if (isWordStart(c)) {
            token.kind = TokenKind::Word;
            while (isWordPart(peek())) {
                token.text += take();
            }
        } else if (std::isdigit(static_cast<unsigned char>(c)) ||
                   (c == '-' && std::isdigit(static_cast<unsigned char>(peek(1))))) {
            token.kind = TokenKind::Number;
            token.text += take();
            const bool hexadecimal = peek() == 'x' || peek() == 'X';
            while (isWordPart(peek()) || peek() == '.' || (!hexadecimal && isExponentSign())) {
                token.text += take();
            }
        } else {
            token.kind = TokenKind::Mark;
            token.text = std::string(1, take());
        }
        afterUuid_ = token.kind == TokenKind::Word && token.text == "uuid";
        return token;
    }

    bool isExponentSign() const {
        const char before = source_[position_ - 1];
        return (peek() == '+' || peek() == '-') && (before == 'E' || before == 'e');
    }

    /// A name in brackets is followed by a number: `[any name] = 0`. An attribute list never is.
    bool isBracketedName() const {
        const std::size_t end = source_.find(']', position_);
        if (end == std::string_view::npos) {
            return false;
        }
        const std::size_t after = source_.find_first_not_of(" \t", end + 1);
        return after != std::string_view::npos && source_[after] == '=';
    }

    /// What stands between the mark at the present place and `end`.
    std::string enclosed(char end) {
        const Place start = place_;
        std::string content;
        take();
        while (peek() != end) {
            if (position_ >= source_.size() || peek() == '\n') {
                throw Failure(start, std::string("no ") + end + " on the same line");
            }
            content += take();
        }
        take();
        return content;
    }

    std::string text() {
        const Place start = place_;
        std::string result;
        take();
        while (peek() != '"') {
            if (position_ >= source_.size() || peek() == '\n') {
                throw Failure(start, "text without an end");
            }
            char c = take();
            if (c == '\\') {
                c = take();
                if (c != '"' && c != '\\') {
                    throw Failure(start, std::string("unknown escape \\") + c);
                }
            }
            result += c;
        }
        take();
        return result;
    }

    std::string_view source_;
    std::size_t position_ = 0;
    Place place_;
    bool afterUuid_ = false;
};

} // namespace

std::vector<Token> tokenize(std::string_view source, const std::string& file) {
    return Lexer(source, file).run();
}

} // namespace idlc
