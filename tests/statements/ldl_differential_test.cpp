#include <random>

#include "ldl_generator_fixture.h"
#include "platform/fault.h"

namespace orvent::statements {
namespace {

// The passes by the letter, without a thought for speed: every replacement goes through the whole text at once.

struct Endless {};

void replaceEverywhere(std::string& text, const std::string& from, const std::string& to, int& stepsLeft) {
    for (std::size_t hit = text.find(from); hit != std::string::npos; hit = text.find(from, hit + to.size())) {
        text.replace(hit, from.size(), to);
    }
    if (text.size() > 100'000 || --stepsLeft == 0) {
        throw Endless{};
    }
}

long loopSpan(std::size_t p, const std::string& text) {
    std::size_t c = text.find('{', p);
    if (c == std::string::npos) {
        return -1;
    }
    ++c;
    for (int depth = 1; depth > 0; ++c) {
        c = text.find_first_of("{}", c);
        if (c == std::string::npos) {
            return -1;
        }
        depth += text[c] == '{' ? 1 : -1;
    }
    return static_cast<long>(c - p);
}

std::string expandByTheLetter(const LDLGenerator& generator, std::string text) {
    int stepsLeft = 2000;
    for (std::size_t p = 0; p < text.size();) {
        if (text[p] != '[') {
            ++p;
            continue;
        }
        const long length = loopSpan(p, text);
        if (length <= 0) {
            p = text.find(']', p);
            if (p == std::string::npos) {
                return "CRITICAL ERROR AT POSITION: 0A bracket is not closed.";
            }
            continue;
        }
        const std::string span = text.substr(p, static_cast<std::size_t>(length));
        const std::size_t close = span.find(']');
        if (close == std::string::npos) {
            ++p;
        } else if (span.substr(0, close).find_first_of("<=") == std::string::npos) {
            p += close + 1;
        } else {
            replaceEverywhere(text, span, generator.ExpandLoop(span), stepsLeft);
        }
    }
    return text;
}

std::string replaceByTheLetter(const LDLGenerator& generator, std::string text) {
    int stepsLeft = 2000;
    for (std::size_t p = 0; p < text.size();) {
        if (text[p] != '@') {
            ++p;
            continue;
        }
        try {
            const LDLGenerator::Replacement found = generator.replacementAt(text, p);
            replaceEverywhere(text, text.substr(p, found.length), found.text, stepsLeft);
            p += found.text.size();
        } catch (const platform::Fault&) {
            break;
        }
    }
    return text;
}

bool startsAnyCase(const std::string& text, std::size_t at, const std::string& token) {
    return at + token.size() <= text.size() &&
           std::equal(token.begin(), token.end(), text.begin() + static_cast<long>(at),
                      [](char a, char b) { return a == std::toupper(b); });
}

/// One token after the other, each in the whole text; with `WholeNumbers` none that a digit follows.
std::string namesByTheLetter(const LDLGenerator& generator, std::string text, const std::string& N,
                             const LDLsourceColl& sources, const entities::Act_OutputsCollection& outputs) {
    std::vector<std::pair<std::string, std::string>> tokens;
    const std::string n = FirstCapitalReplacer(N);
    int k = 0;
    for (const LDLSource& source : sources) {
        const std::string number = std::to_string(++k);
        int j = 0;
        for (const auto& input : source) {
            tokens.emplace_back("A_IN" + number + "_" + std::to_string(++j),
                                N + "_IN" + number + "_" + input.Attribute_Name);
        }
        tokens.emplace_back("A_IN" + number, n + "_in" + number);
    }
    int i = 0;
    for (const auto& output : outputs) {
        tokens.emplace_back("A_OUT_" + std::to_string(++i), N + "_OUT_" + output.Attribute_Name);
    }
    tokens.emplace_back("A_OUT", n + "_out");
    for (const auto& [token, name] : tokens) {
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = at + token.size();
            const bool cut = generator.WholeNumbers && end < text.size() && std::isdigit(text[end]);
            if (startsAnyCase(text, at, token) && !cut) {
                text.replace(at, token.size(), name);
                at += name.size();
            } else {
                ++at;
            }
        }
    }
    return text;
}

class LDLDifferentialTest : public LDLGeneratorTest {
  protected:
    using Pass = std::string (LDLGenerator::*)(const std::string&) const;
    using Letter = std::string (*)(const LDLGenerator&, std::string);

    void compare(Pass pass, Letter letter, const std::vector<std::string>& words, int rounds) {
        std::mt19937 random(20240611);
        const LDLGenerator passes = generator();
        for (int round = 0; round < rounds; ++round) {
            std::string text;
            for (std::size_t left = 1 + random() % 14; left > 0; --left) {
                text += words[random() % words.size()];
            }
            try {
                const std::string expected = letter(passes, text);
                ASSERT_EQ((passes.*pass)(text), expected) << text;
            } catch (const Endless&) {
            }
        }
    }
};

TEST_F(LDLDifferentialTest, QuickLoopsAreLoopsByTheLetter) {
    constant("N", "2");
    array("A", VarParameterArray, {"x", "y", "z"});
    compare(&LDLGenerator::ExpandLoops, expandByTheLetter,
            {"[i<3]{",   "[j=2]{",      "[i<$j$+1]{", "[0<j<3]{", "[i<arityOf(@A)+1]{",
             "[i=1]{a}", "[i<3]{x$i$}", "{",          "}",        "}",
             "}",        "[",           "]",          "<",        "=",
             "$i$",      "$j$",         "@A[$i$]",    "@N",       "[2]",
             ","},
            150'000);
}

TEST_F(LDLDifferentialTest, QuickVariablesAreVariablesByTheLetter) {
    constant("X", "v");
    constant("XY", "2");
    constant("X2", "w");
    constant("V", "y");
    constant("AT", "u@X");
    define("U", VarUndefined);
    define("NOBODY", VarFunction);
    array("A", VarParameterArray, {"", "k", "7"});
    std::vector<std::string> words = {"@",  "@X", "@XY", "@X2", "@V", "Y",  "2", "@U",    "@A[1]",  "@A[2]",
                                      "@A", "[",  "]",   "[3]", ",",  " 1", "X", "@A[9]", "@A[@X2]"};
    compare(&LDLGenerator::ReplaceVariables, replaceByTheLetter, words, 100'000);
    // With the variable without a name every "@" stands for it, too.
    constant("", "q");
    words.insert(words.end(), {"@AT", "@NOBODY"});
    compare(&LDLGenerator::ReplaceVariables, replaceByTheLetter, words, 100'000);
}

TEST_F(LDLDifferentialTest, QuickNamesAreNamesByTheLetter) {
    const char* const words[] = {"A_IN", "a_in", "A_OUT", "1", "2",  "3", "0",   "_",    "_1",
                                 "_2",   "_1",   "a",     "A", "A_", ",", "in1", "IN2_", "out"};
    activity->Act_Inputs->Item("AGE")->Attribute_Name = "a";
    activity->Act_Inputs->Item("CITY")->Attribute_Name = "x_a_";
    std::mt19937 random(7);
    for (const char* name : {"CheckAge", "Data", "In1", "_in1", "1_a", "out_A"}) {
        activity->Act_Name = name;
        LDLGenerator passes = generator();
        for (int round = 0; round < 20'000; ++round) {
            std::string text;
            for (std::size_t left = 1 + random() % 12; left > 0; --left) {
                text += words[random() % std::size(words)];
            }
            passes.WholeNumbers = round % 2 == 1;
            ASSERT_EQ(passes.ReplaceActivityNames(text), namesByTheLetter(passes, text, name, sources, outputs))
                << name << " " << text;
        }
    }
}

}  // namespace
}  // namespace orvent::statements
