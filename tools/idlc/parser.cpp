#include "parser.h"

#include "lexer.h"

#include <charconv>
#include <map>

namespace idlc {

namespace {

/// One attribute of a bracketed list: its name, and its argument's tokens joined (a text without quotes).
struct Attribute {
    Token argument;
    bool hasArgument = false;
    bool used = false;
};

class Attributes {
public:
    explicit Attributes(Place place) : place_(std::move(place)) {}

    void add(const Token& name, Attribute attribute) {
        if (!list_.emplace(name.text, std::move(attribute)).second) {
            throw Failure(name.place, "attribute " + name.text + " stands twice");
        }
    }
    bool flag(const std::string& name) { return find(name) != nullptr; }
    std::optional<Token> argument(const std::string& name) {
        const Attribute* attribute = find(name);
        if (!attribute) {
            return std::nullopt;
        }
        if (!attribute->hasArgument) {
            throw Failure(place_, "attribute " + name + " needs an argument");
        }
        return attribute->argument;
    }
    std::string text(const std::string& name) {
        const std::optional<Token> token = argument(name);
        return token ? token->text : std::string();
    }
    /// Every attribute has to be known where it stands.
    void finish() const {
        for (const auto& [name, attribute] : list_) {
            if (!attribute.used) {
                throw Failure(place_, "attribute " + name + " has no meaning here");
            }
        }
    }

private:
    const Attribute* find(const std::string& name) {
        const auto found = list_.find(name);
        if (found == list_.end()) {
            return nullptr;
        }
        found->second.used = true;
        return &found->second;
    }

    Place place_;
    std::map<std::string, Attribute> list_;
};

std::int64_t toNumber(const Token& token) {
    std::string_view text = token.text;
    const bool negative = text.starts_with('-');
    text.remove_prefix(negative ? 1 : 0);
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    text.remove_prefix(hexadecimal ? 2 : 0);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, hexadecimal ? 16 : 10);
    if (token.kind != TokenKind::Number || error != std::errc() || end != text.data() + text.size()) {
        throw Failure(token.place, "'" + token.text + "' is no whole number");
    }
    return negative ? -value : value;
}

class Parser {
public:
    explicit Parser(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

    std::unique_ptr<Library> run() {
        auto library = std::make_unique<Library>();
        while (isWord("import")) {
            take();
            library->imports.push_back(expect(TokenKind::Text).text);
            expectMark(";");
        }
        Attributes attributes = attributeList();
        library->place = current().place;
        expectWord("library");
        library->name = expect(TokenKind::Word).text;
        library->uuid = attributes.text("uuid");
        library->help = attributes.text("helpstring");
        if (const auto version = attributes.argument("version")) {
            const std::size_t point = version->text.find('.');
            library->major = std::stoi(version->text);
            library->minor = point == std::string::npos ? 0 : std::stoi(version->text.substr(point + 1));
        }
        if (const auto lcid = attributes.argument("lcid")) {
            library->lcid = static_cast<std::uint32_t>(toNumber(*lcid));
        }
        attributes.finish();
        expectMark("{");
        while (!isMark("}")) {
            library->definitions.push_back(definition());
            library->definitions.back()->library = library.get();
        }
        take();
        expectMark(";");
        expect(TokenKind::End);
        return library;
    }

private:
    const Token& current() const { return tokens_[position_]; }
    const Token& take() { return tokens_[position_++]; }
    bool isWord(std::string_view text) const { return current().kind == TokenKind::Word && current().text == text; }
    bool isMark(std::string_view text) const { return current().kind == TokenKind::Mark && current().text == text; }

    [[noreturn]] void fail(const std::string& wanted) const {
        throw Failure(current().place, "expected " + wanted + ", found '" + current().text + "'");
    }
    const Token& expect(TokenKind kind) {
        static constexpr const char* names[] = {"a name", "a number", "a text", "a mark", "the end"};
        if (current().kind != kind) {
            fail(names[static_cast<int>(kind)]);
        }
        return kind == TokenKind::End ? current() : take();
    }
    void expectMark(std::string_view text) {
        if (!isMark(text)) {
            fail("'" + std::string(text) + "'");
        }
        take();
    }
    void expectWord(std::string_view text) {
        if (!isWord(text)) {
            fail("'" + std::string(text) + "'");
        }
        take();
    }
    bool skipMark(std::string_view text) {
        const bool found = isMark(text);
        position_ += found;
        return found;
    }

    Attributes attributeList() {
        Attributes attributes(current().place);
        if (!skipMark("[")) {
            return attributes;
        }
        do {
            const Token name = expect(TokenKind::Word);
            Attribute attribute;
            if (name.text == "uuid") {
                attribute = {expect(TokenKind::Text), true, false};
            } else if (skipMark("(")) {
                attribute = {take(), true, false};
                expectMark(")");
            }
            attributes.add(name, std::move(attribute));
        } while (skipMark(","));
        expectMark("]");
        return attributes;
    }

    std::unique_ptr<Definition> definition() {
        auto result = std::make_unique<Definition>();
        const bool isTypedef = isWord("typedef");
        if (isTypedef) {
            take();
        }
        Attributes attributes = attributeList();
        result->place = current().place;
        result->help = attributes.text("helpstring");
        result->uuid = attributes.text("uuid");
        if (isTypedef && isWord("enum")) {
            parseEnum(*result);
        } else if (isTypedef && isWord("struct")) {
            parseRecord(*result);
        } else if (isTypedef) {
            result->kind = DefinitionKind::Alias;
            result->target = type();
            result->name = expect(TokenKind::Word).text;
        } else if (isWord("interface") || isWord("dispinterface")) {
            parseInterface(*result, attributes);
        } else if (isWord("coclass")) {
            parseClass(*result, attributes);
        } else {
            fail("a definition");
        }
        attributes.finish();
        expectMark(";");
        return result;
    }

    /// The name stands before the braces and again behind them.
    void finishNamed(Definition& result) {
        const Token& again = expect(TokenKind::Word);
        if (again.text != result.name) {
            throw Failure(again.place, "'" + again.text + "' instead of '" + result.name + "'");
        }
    }

    void parseEnum(Definition& result) {
        result.kind = DefinitionKind::Enum;
        take();
        result.name = expect(TokenKind::Word).text;
        expectMark("{");
        do {
            Attributes attributes = attributeList();
            EnumValue value;
            value.place = current().place;
            value.help = attributes.text("helpstring");
            attributes.finish();
            value.name = expect(TokenKind::Word).text;
            expectMark("=");
            const std::int64_t number = toNumber(take());
            if (number < INT32_MIN || number > UINT32_MAX) {
                throw Failure(value.place, value.name + " does not fit into 32 bits");
            }
            value.number = static_cast<std::int32_t>(number);
            result.values.push_back(std::move(value));
        } while (skipMark(",") && !isMark("}"));
        expectMark("}");
        finishNamed(result);
    }

    void parseRecord(Definition& result) {
        result.kind = DefinitionKind::Record;
        take();
        result.name = expect(TokenKind::Word).text;
        expectMark("{");
        while (!isMark("}")) {
            Attributes attributes = attributeList();
            Field field;
            field.place = current().place;
            field.help = attributes.text("helpstring");
            attributes.finish();
            field.type = type();
            field.name = expect(TokenKind::Word).text;
            expectMark(";");
            result.fields.push_back(std::move(field));
        }
        take();
        finishNamed(result);
    }

    void parseInterface(Definition& result, Attributes& attributes) {
        const bool isDispatch = take().text == "dispinterface";
        result.kind = isDispatch ? DefinitionKind::DispatchInterface : DefinitionKind::Interface;
        result.name = expect(TokenKind::Word).text;
        if (isDispatch) {
            expectMark("{");
            expectWord("methods");
            expectMark(":");
        } else {
            // Every interface of a library is dual and derives from IDispatch.
            for (const char* needed : {"dual", "oleautomation"}) {
                if (!attributes.flag(needed)) {
                    throw Failure(result.place, result.name + " lacks the attribute " + needed);
                }
            }
            expectMark(":");
            expectWord("IDispatch");
            expectMark("{");
        }
        while (!isMark("}")) {
            result.members.push_back(member(isDispatch));
        }
        take();
    }

    Member member(bool isDispatch) {
        Attributes attributes = attributeList();
        Member result;
        result.place = current().place;
        result.help = attributes.text("helpstring");
        const auto id = attributes.argument("id");
        if (!id) {
            throw Failure(result.place, "a member needs an id");
        }
        result.id = static_cast<std::int32_t>(toNumber(*id));
        result.hidden = attributes.flag("hidden");
        result.nonBrowsable = attributes.flag("nonbrowsable");
        int kinds = 0;
        for (const auto& [name, kind] :
             {std::pair{"propget", MemberKind::Get}, {"propput", MemberKind::Put}, {"propputref", MemberKind::PutRef}}) {
            if (attributes.flag(name)) {
                result.kind = kind;
                ++kinds;
            }
        }
        if (kinds > 1) {
            throw Failure(result.place, "a member has one kind");
        }
        attributes.finish();
        if (isDispatch) {
            result.result = type();
        } else {
            expectWord("HRESULT");
        }
        result.name = expect(TokenKind::Word).text;
        expectMark("(");
        while (!isMark(")")) {
            result.parameters.push_back(parameter());
            if (!skipMark(",") && !isMark(")")) {
                fail("',' or ')'");
            }
        }
        take();
        expectMark(";");
        if (!result.parameters.empty() && result.parameters.back().retval) {
            result.result = result.parameters.back().type;
            --result.result.pointers;
            result.parameters.pop_back();
        }
        return result;
    }

    Parameter parameter() {
        Attributes attributes = attributeList();
        Parameter result;
        result.place = current().place;
        result.in = attributes.flag("in");
        result.out = attributes.flag("out");
        result.retval = attributes.flag("retval");
        result.optional = attributes.flag("optional");
        if (const auto value = attributes.argument("defaultvalue")) {
            result.defaultValue = constant(*value);
        }
        attributes.finish();
        result.type = type();
        result.name = expect(TokenKind::Word).text;
        return result;
    }

    static Constant constant(const Token& token) {
        Constant result;
        if (token.kind == TokenKind::Text) {
            result.value = token.text;
        } else if (token.kind == TokenKind::Word) {
            result.name = token.text;
        } else if (token.text.find_first_of(".") != std::string::npos) {
            result.value = std::stod(token.text);
        } else {
            result.value = toNumber(token);
        }
        return result;
    }

    Type type() {
        static const std::map<std::string, Basic, std::less<>> basics = {
            {"void", Basic::Void},          {"long", Basic::Long},
            {"short", Basic::Integer},      {"float", Basic::Single},
            {"double", Basic::Double},      {"BSTR", Basic::String},
            {"DATE", Basic::Date},          {"CURRENCY", Basic::Currency},
            {"VARIANT", Basic::Variant},    {"VARIANT_BOOL", Basic::Boolean},
            {"IDispatch", Basic::Dispatch}, {"IUnknown", Basic::Unknown}};
        Type result;
        const Token& token = expect(TokenKind::Word);
        if (token.text == "SAFEARRAY") {
            expectMark("(");
            result = type();
            result.array = true;
            expectMark(")");
        } else if (token.text == "unsigned") {
            expectWord("char");
            result.basic = Basic::Byte;
        } else if (const auto found = basics.find(token.text); found != basics.end()) {
            result.basic = found->second;
        } else {
            result.basic = Basic::Named;
            result.name = token.text;
        }
        while (skipMark("*")) {
            ++result.pointers;
        }
        return result;
    }

    void parseClass(Definition& result, Attributes& attributes) {
        result.kind = DefinitionKind::Class;
        result.creatable = !attributes.flag("noncreatable");
        result.appObject = attributes.flag("appobject");
        take();
        result.name = expect(TokenKind::Word).text;
        expectMark("{");
        while (!isMark("}")) {
            Attributes role = attributeList();
            const bool source = role.flag("source");
            role.flag("default");
            role.finish();
            if (!isWord("interface") && !isWord("dispinterface")) {
                fail("'interface' or 'dispinterface'");
            }
            take();
            std::string& name = source ? result.eventsName : result.defaultName;
            if (!name.empty()) {
                throw Failure(current().place, result.name + " has two interfaces of one role");
            }
            name = expect(TokenKind::Word).text;
            expectMark(";");
        }
        take();
    }

    std::vector<Token> tokens_;
    std::size_t position_ = 0;
};

} // namespace

std::unique_ptr<Library> parse(std::string_view source, const std::string& file) {
    return Parser(tokenize(source, file)).run();
}

} // namespace idlc
