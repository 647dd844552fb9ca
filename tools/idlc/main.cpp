// Compiles a type library: idlc --output DIR [--classes NAMESPACE] [--client HEADER] [--reference DIR] [--stubs DIR] FILE.idl
#include "emitters.h"
#include "parser.h"
#include "resolver.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>

namespace {

using idlc::Library;

/// Files that were read, by name: a file that two others import is read once.
class Files {
public:
    const Library& load(const std::filesystem::path& path) {
        const std::string name = std::filesystem::weakly_canonical(path).string();
        if (const auto found = libraries_.find(name); found != libraries_.end()) {
            if (!found->second) {
                throw std::runtime_error(path.string() + " imports itself");
            }
            return *found->second;
        }
        libraries_[name] = nullptr;
        std::ifstream file(path, std::ios::binary);
        std::ostringstream text;
        if (!file || !(text << file.rdbuf())) {
            throw std::runtime_error("cannot read " + path.string());
        }
        auto library = idlc::parse(text.str(), path.string());
        for (const std::string& import : library->imports) {
            library->imported.push_back(&load(path.parent_path() / import));
        }
        idlc::resolve(*library);
        return *(libraries_[name] = std::move(library));
    }

private:
    std::map<std::string, std::unique_ptr<Library>> libraries_;
};

int usage() {
    std::fputs("usage: idlc --output DIR [--classes NAMESPACE] [--client HEADER] [--reference DIR] [--stubs DIR] FILE.idl\n",
               stderr);
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    std::map<std::string, std::string> given;
    std::string input;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word.starts_with("--") && i + 1 < argc) {
            given[word.substr(2)] = argv[++i];
        } else if (input.empty() && !word.starts_with("--")) {
            input = word;
        } else {
            return usage();
        }
    }
    if (input.empty() || given.empty()) {
        return usage();
    }
    try {
        Files files;
        const Library& library = files.load(input);
        idlc::Options options;
        if (given.contains("output")) {
            options.output = given["output"];
        }
        if (given.contains("classes")) {
            options.classes = given["classes"];
        }
        options.client = given.contains("client") ? given["client"] : "mox/" + library.name + ".client.h";
        if (given.contains("output")) {
            idlc::emitInterfaces(library, options);
            idlc::emitDescriptions(library, options);
            idlc::emitAdapters(library, options);
            idlc::emitSlots(library, options);
            idlc::emitClient(library, options);
        }
        if (given.contains("reference")) {
            idlc::emitReference(library, given["reference"]);
        }
        if (given.contains("stubs")) {
            idlc::emitStubs(library, given["stubs"]);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
