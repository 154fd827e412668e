// Takes any text as an SQL text that is coloured while its caret moves, and as a script that is run.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "platform/text.h"
#include "repository/repository_check.h"
#include "statements/sql_keyword_checker.h"

using namespace orvent;

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

class Box : public statements::ColouredText {
  public:
    explicit Box(std::string text) : letters(std::move(text)), colours(letters.size(), -1) {}

    std::size_t length() const override { return letters.size(); }
    unsigned char at(std::size_t position) const override { return static_cast<unsigned char>(letters.at(position)); }
    std::size_t caret() const override { return place; }
    void paint(std::size_t from, std::size_t count, std::int32_t colour, bool) override {
        require(count > 0 && from + count <= colours.size());
        for (std::size_t position = from; position < from + count; ++position) {
            colours[position] = colour;
        }
    }
    void setLetters(std::size_t from, const std::string& text) override {
        require(from + text.size() <= letters.size());
        letters.replace(from, text.size(), text);
    }
    void typeIn(std::int32_t, bool) override {}

    std::string letters;
    std::vector<std::int32_t> colours;
    std::size_t place = 0;
};

/// Keeps the statements it is given, and fails each of them as a database may.
class Recorder : public platform::Connection {
  public:
    std::vector<std::string> statements;

    std::unique_ptr<platform::Statement> prepare(std::string_view sql) override {
        statements.emplace_back(sql);
        throw platform::Fault("refused");
    }
};

void colour(const std::string& text) {
    const statements::SQL_KeywordChecker checker;
    Box whole(text);
    checker.ColourText(whole);
    require(platform::equalIgnoringCase(whole.letters, text) && whole.letters.size() == text.size());

    // Walking over the text with the cursor keys comes to the same as colouring it at once.
    Box walked(text);
    for (walked.place = 0; walked.place <= text.size(); ++walked.place) {
        checker.txtSQL_KeyDown(0x27, false, walked);
    }
    require(walked.letters == whole.letters);
    for (std::size_t position = 0; position < text.size(); ++position) {
        require(walked.colours[position] == whole.colours[position] || walked.colours[position] == -1);
    }
}

void runScript(const std::string& text) {
    Recorder recorder;
    repository::runScript(recorder, text);
    std::size_t ends = 0;
    std::size_t kept = 0;
    for (const char c : text) {
        ends += c == ';';
    }
    ends += !text.empty() && text.back() != ';';
    for (const std::string& statement : recorder.statements) {
        kept += statement.size();
        for (const char c : statement) {
            require(c >= 32 && c < 126 && c != ';');
        }
    }
    require(recorder.statements.size() == ends && kept + ends == text.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    colour(text);
    runScript(text);
    return 0;
}
