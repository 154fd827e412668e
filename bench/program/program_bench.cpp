// The check of a program in figures: chains of activities with 20 columns, and how it grows with their number.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "program/checked_program.h"
#include "sql/script.h"

namespace orvent::bench {
namespace {

constexpr int kColumns = 20;
constexpr int kRounds = 15;

class Silence : public platform::MessageBox {
  public:
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        return platform::Answer::ok;
    }
};

std::string column(int at) {
    return "COLUMN_" + std::to_string(at);
}

/// A statement as the wizard makes it of a selection.
std::string selection(const std::string& name, const std::string& small) {
    std::string outputs, inputs, pairs;
    for (int at = 1; at <= kColumns; ++at) {
        const std::string comma = at == 1 ? "" : ",";
        outputs += comma + name + "_OUT_" + column(at);
        inputs += comma + name + "_IN1_" + column(at);
        pairs += "," + name + "_OUT_" + column(at) + "=" + name + "_IN1_" + column(at);
    }
    return small + "_out(" + outputs + ")<-" + small + "_in1(" + inputs + ")," + name + "_IN1_" + column(3) + " > 10" +
           pairs + ".";
}

/// A record set and a chain of activities behind it, each column linked from one to the next.
void buildChain(canvas::DrawForm& form, int activities) {
    using namespace entities;
    const std::string source = "SOURCE";
    RecordSetProperties& start =
        *form.Labels.Add({0, 0, 1000, 400}, source, canvas::NodeTypeRecordSet, source).recordSet();
    for (int at = 1; at <= kColumns; ++at) {
        start.RecordSet_Outputs->Add(column(at), 0, column(at)).ParentKeyName = source;
        start.addDbKey(column(at), "DB." + source + "." + column(at));
    }
    std::string before = source;
    for (int number = 1; number <= activities; ++number) {
        const std::string name = "Select" + std::to_string(number);
        ActivityProperties& activity =
            *form.Labels.Add({0, 0, 1000, 400}, name, canvas::NodeTypeActivity, name).activity();
        activity.Act_LDL = selection(name, "s" + name.substr(1));
        ParameterProperties& value = activity.Act_Parameters->Add("VALUE", 0, TagNone, "VALUE");
        value.RegulatedFrom->Add("10", LinkConstant, "10");
        for (int at = 1; at <= kColumns; ++at) {
            AttributeProperties& input = activity.Act_Inputs->Add(column(at), 0, TagNone, column(at));
            AttributeProperties& output = activity.Act_Outputs->Add(column(at), 0, TagNone, column(at));
            input.ParentKeyName = output.ParentKeyName = name;
            input.ProvidedFrom->Add(before, number == 1 ? LinkRecordSet : LinkActivity,
                                    wholeKey(before, number == 1 ? KindRecordSetAttribute : KindOutput, column(at)));
            output.ProvidedFrom->Add(name, LinkInput, relativeKey(KindInput, column(at)));
        }
        before = name;
    }
}

/// Milliseconds for a check of so many activities, or for their script, which begins with one; the middle of some
/// rounds.
double check(int activities, bool script) {
    Silence messages;
    canvas::CanvasSettings settings;
    entities::CatalogueTables tables;
    tables.dataTypes.add("NUMBER");
    canvas::DrawForm form({messages, settings});
    buildChain(form, activities);
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round) {
        const auto from = std::chrono::steady_clock::now();
        if (script) {
            const auto parts = sql::scriptParts(form, tables, *sql::dialectNamed("postgresql"), {});
            times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - from).count());
            if (sql::scriptText(parts).find("Not here: Activity") != std::string::npos) {
                std::printf("activities are missing\n");
            }
            continue;
        }
        const program::Program program = program::checkedProgram(form, tables);
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - from).count());
        if (!program.findings.empty() || program.rules.size() != 2 * static_cast<std::size_t>(activities)) {
            std::printf("%s\n", program.findings.empty() ? "rules are missing" : program.findings[0].words.c_str());
        }
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace
}  // namespace orvent::bench

int main() {
    for (const bool script : {false, true}) {
        const double few = orvent::bench::check(100, script);
        const double many = orvent::bench::check(1000, script);
        const double ratio = many / few / 10;
        std::printf(
            "%-58s %9.3f ms  aim %5d  %s\n",
            script ? "check and compile 1,000 activities of 20 columns" : "check 1,000 activities of 20 columns", many,
            100, many <= 100 ? "met" : "MISSED");
        std::printf("%-58s %9.3f     aim %5.1f  %s\n", "per activity, 1,000 to 100", ratio, 1.3,
                    ratio <= 1.3 ? "met" : "MISSED");
    }
    return 0;
}
