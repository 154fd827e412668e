// The LDL generator: time per character of the result at 10 kB and at 1 MB, for loops and for variables; and a loop of
// 1 MB beside a well-known template engine, Jinja2, both as whole work of one render and as a whole process.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "canvas/draw_form.h"
#include "statements/ldl_generator.h"

namespace {

using namespace orvent;

constexpr std::size_t kSmall = 10'000;
constexpr std::size_t kLarge = 1'000'000;

class NoMessages : public platform::MessageBox {
  public:
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        return platform::Answer::ok;
    }
};

constexpr std::size_t kLineLength = 50;

/// The name of one of many variables; none is the head of another.
std::string variableName(std::size_t number) {
    return "V" + std::to_string(10'000'000 + number);
}

/// A generator with constant variables, and an activity without sources.
struct Bench {
    explicit Bench(std::size_t variableCount = 1) {
        activity.Act_Name = "Bench";
        for (std::size_t number = 0; number < variableCount; ++number) {
            addConstant(variableName(number));
        }
    }

    void addConstant(const std::string& name) {
        statements::LDLVariable& variable = variables.Add(name);
        variable.VariableType = statements::VarParameter;
        variable.RegulatorType = statements::RegConstant;
        variable.RegulatorName = "VALUE";
        variable.Defined = true;
    }

    NoMessages messages;
    canvas::CanvasSettings settings;
    canvas::DrawForm form{canvas::CanvasServices{messages, settings}};
    entities::ActivityProperties activity;
    entities::Act_OutputsCollection outputs;
    statements::LDLsourceColl sources;
    statements::LDLVariableCollection variables;
    statements::LDLGenerator generator{variables, sources, outputs, activity, form};
};

double bestSeconds(const std::function<std::size_t()>& work, std::size_t& size) {
    double best = 1e9;
    for (int run = 0; run < 7; ++run) {
        const auto begin = std::chrono::steady_clock::now();
        size = work();
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
        best = std::min(best, took.count());
    }
    return best;
}

/// A loop whose result has about `size` characters.
std::string loopTemplate(std::size_t size) {
    const std::size_t rounds = std::min<std::size_t>(size / 50, 30'000);
    return "[i<" + std::to_string(rounds + 1) + "]{rule$i$(" + std::string(size / rounds - 13, 'a') + ")}";
}

std::string variableTemplate(std::size_t size) {
    std::string text;
    while (text.size() < size) {
        text += "head(@" + variableName(0) + ", some_text_of_the_template) ";
    }
    return text;
}

/// Each variable once.
std::string distinctTemplate(std::size_t size) {
    std::string text;
    for (std::size_t number = 0; number < size / kLineLength; ++number) {
        std::string line = "head(@" + variableName(number) + ",";
        text += line.append(kLineLength - line.size() - 2, 'a') + ") ";
    }
    return text;
}

void growth(const char* what, const std::function<std::string(std::size_t)>& makeTemplate,
            std::size_t variableCount = 1) {
    Bench bench(variableCount);
    double perCharacter[2];
    const std::size_t sizes[2] = {kSmall, kLarge};
    for (int at = 0; at < 2; ++at) {
        const std::string text = makeTemplate(sizes[at]);
        std::size_t size = 0;
        const double seconds = bestSeconds([&] { return bench.generator.GenerateLDL(text).text.size(); }, size);
        perCharacter[at] = seconds / static_cast<double>(size) * 1e9;
    }
    std::printf("%-10s  10 kB %6.2f ns a character, 1 MB %6.2f ns, ratio %.2f (at most 1.5)\n", what, perCharacter[0],
                perCharacter[1], perCharacter[1] / perCharacter[0]);
}

constexpr const char* kJinja =
    "/usr/bin/python3 -c \"\n"
    "import jinja2, time\n"
    "t = jinja2.Template('{% for i in range(1, 20001) %}rule{{ i }}(' + 'a' * 37 + '){% endfor %}')\n"
    "best = 9\n"
    "for run in range(5):\n"
    "    b = time.perf_counter(); r = t.render(); best = min(best, time.perf_counter() - b)\n"
    "print(best, len(r))\"";

void besideJinja() {
    Bench bench;
    const std::string text = loopTemplate(kLarge);
    std::size_t size = 0;
    const double ours = bestSeconds([&] { return bench.generator.GenerateLDL(text).text.size(); }, size);
    const auto begin = std::chrono::steady_clock::now();
    std::FILE* jinja = popen(kJinja, "r");
    double render = 0;
    std::size_t length = 0;
    if (!jinja || std::fscanf(jinja, "%lf %zu", &render, &length) != 2 || pclose(jinja) != 0) {
        std::fprintf(stderr, "Jinja2 (package python3-jinja2) did not run\n");
        std::exit(1);
    }
    const std::chrono::duration<double> process = std::chrono::steady_clock::now() - begin;
    std::printf("a loop to 1 MB: ours %.2f ms (%zu characters), Jinja2's render %.2f ms (%zu), its process %.0f ms\n",
                ours * 1e3, size, render * 1e3, length, process.count() * 1e3);
}

}  // namespace

int main() {
    growth("loops", loopTemplate);
    growth("variables", variableTemplate);
    growth("distinct", distinctTemplate, kLarge / kLineLength);
    besideJinja();
    return 0;
}
