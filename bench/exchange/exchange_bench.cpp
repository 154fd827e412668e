// A scenario as a document in figures: writing and reading beside the JSON library's own dump and parse of the same
// text, how they grow with the scenario, and pasting beside plain calls.

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "bench/graphs.h"
#include "exchange/clipboard.h"
#include "exchange/document_reader.h"
#include "exchange/document_writer.h"
#include "exchange/scenario_filler.h"
#include "links/synchronize_functions.h"

namespace orvent::bench {
namespace {

constexpr int kRuns = 9, kFew = 1000;

class Silence : public platform::MessageBox {
  public:
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        return platform::Answer::ok;
    }
};

/// Of the processor, so that what else the machine does counts little.
double milliseconds(const std::function<void()>& work) {
    timespec from{}, to{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &from);
    work();
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &to);
    return 1e3 * static_cast<double>(to.tv_sec - from.tv_sec) + 1e-6 * static_cast<double>(to.tv_nsec - from.tv_nsec);
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

void print(const std::string& name, double ratio, double aim, double reference, double ours) {
    std::printf("%-58s %9.3f ms beside %9.3f ms  ratio %6.2f  aim %4.1f  %s\n", name.c_str(), ours, reference, ratio,
                aim, ratio <= aim ? "met" : "MISSED");
}

/// A scenario, its text, and the same text as the library has it.
struct Subject {
    explicit Subject(int nodes) {
        tables.dataTypes.add("NUMBER");
        tables.activityTypes.add("Copy");
        buildScenario(form, nodes);
        synchronizeScenario(form);
        text = write();
        json = nlohmann::ordered_json::parse(text);
    }

    std::string write() const { return exchange::writeDocument(form, tables, {}, {"1", false}); }

    /// The window is given, so that its end is not measured.
    void readInto(canvas::DrawForm& into) {
        exchange::Document document = exchange::readDocument(text);
        const exchange::TypeIndices types = exchange::indicesIn(tables, document);
        exchange::fillForm(into, std::move(document), types);
    }

    Silence messages;
    canvas::CanvasSettings settings;
    entities::CatalogueTables tables;
    canvas::DrawForm form{{messages, settings}};
    std::string text;
    nlohmann::ordered_json json;
};

struct Times {
    double write = 0, dump = 0, read = 0, parse = 0;
};

/// So many scenarios of one size, one after the other.
Times measure(int nodes, int scenarios) {
    std::vector<std::unique_ptr<Subject>> subjects;
    for (int at = 0; at < scenarios; ++at) {
        subjects.push_back(std::make_unique<Subject>(nodes));
    }
    std::vector<double> write, dump, read, parse;
    const auto each = [&subjects](const std::function<void(Subject&)>& work) {
        return milliseconds([&] {
            for (const auto& subject : subjects) {
                work(*subject);
            }
        });
    };
    std::size_t length = 0;
    for (int run = 0; run < kRuns; ++run) {
        write.push_back(each([&](Subject& subject) { length += subject.write().size(); }));
        dump.push_back(each([&](Subject& subject) { length += subject.json.dump(2).size(); }));
        std::vector<std::unique_ptr<canvas::DrawForm>> windows;
        read.push_back(each([&](Subject& subject) {
            windows.push_back(
                std::make_unique<canvas::DrawForm>(canvas::CanvasServices{subject.messages, subject.settings}));
            subject.readInto(*windows.back());
        }));
        windows.clear();
        std::vector<nlohmann::ordered_json> parsed;
        parse.push_back(each([&](Subject& subject) { parsed.push_back(nlohmann::ordered_json::parse(subject.text)); }));
        length += parsed.size();
    }
    if (length == 0) {
        std::puts("nothing was done");
    }
    return {median(write), median(dump), median(read), median(parse)};
}

/// The types of the benchmarks' scenarios, which nothing is asked of.
class Types : public exchange::TypeCatalogue {
  public:
    explicit Types(entities::CatalogueTables& tables) : tables_(tables) {}
    entities::CatalogueTables& tables() override { return tables_; }
    std::optional<entities::FunctionTypeProperties> functionType(std::int16_t) override { return std::nullopt; }
    std::optional<entities::ActivityTypeProperties> activityType(std::int16_t) override { return std::nullopt; }
    void add(const exchange::TypeDefinitions&) override {}

  private:
    entities::CatalogueTables& tables_;
};

/// The same nodes and edges by plain calls, and the mirrors of their links.
void addPlainly(canvas::DrawForm& form, const canvas::DrawForm& source) {
    std::unordered_map<std::int32_t, std::int32_t> numbers;
    for (const canvas::LabelsD& node : source.Labels) {
        canvas::LabelsD& added = form.Labels.Add(node.box(), "P_" + node.Caption(), node.NodeType());
        if (node.activity()) {
            added.Properties = node.activity()->Clone();
        } else {
            added.Properties = node.recordSet()->Clone();
        }
        numbers.emplace(node.Index(), added.Index());
    }
    for (const canvas::LinesD& edge : source.Lines) {
        form.Lines.addFullLine(numbers.at(edge.FromLabel()), edge.FromGrabbingPoint(), numbers.at(edge.ToLabel()),
                               edge.ToGrabbingPoint(), edge.EdgeType(), edge.Angle(), 0);
    }
    for (const auto& [_, number] : numbers) {
        canvas::LabelsD& node = *form.Labels.byIndex(number);
        if (node.activity()) {
            links::SynchronizeActivity(form, *node.activity(), nullptr);
        } else {
            links::SynchronizeRecordSet(form, *node.recordSet());
        }
    }
}

void pasteAThousand() {
    Subject source(kFew);
    Types types(source.tables);
    const forms::Dialogs dialogs;
    for (const canvas::LabelsD& node : source.form.Labels) {
        source.form.SelectedLabels.Add(node.Index());
    }
    const std::string text = exchange::copySelection(source.form, types, "1");
    std::vector<double> plain, paste;
    for (int run = 0; run < kRuns; ++run) {
        Subject first(10 * kFew), second(10 * kFew);
        plain.push_back(milliseconds([&] { addPlainly(first.form, source.form); }));
        paste.push_back(milliseconds([&] {
            exchange::paste(second.form, text, canvas::Point{0, 0}, {types, dialogs});
        }));
    }
    print("paste 1,000 nodes into 10,000, beside plain adds", median(paste) / median(plain), 3, median(plain),
          median(paste));
}

void run() {
    pasteAThousand();
    const int sizes[] = {kFew, 10 * kFew, 30 * kFew};
    for (const int nodes : sizes) {
        const Times times = measure(nodes, 1);
        const std::string count = std::to_string(nodes) + " nodes, beside the library's ";
        print("write, " + count + "dump", times.write / times.dump, 2, times.dump, times.write);
        print("read, " + count + "parse", times.read / times.parse, 2, times.parse, times.read);
    }
    // Thirty small scenarios have the memory of the large one, so that neither stays in the caches.
    const Times small = measure(kFew, 30);
    const Times large = measure(30 * kFew, 1);
    print("write, 30,000 nodes beside thirty of 1,000", large.write / small.write, 1.3, small.write, large.write);
    print("read, 30,000 nodes beside thirty of 1,000", large.read / small.read, 1.3, small.read, large.read);
}

}  // namespace
}  // namespace orvent::bench

int main() {
    // The memory stays with the process: what a system takes to give fresh pages is none of our growth.
    constexpr int kKept = 2'000'000'000;
    mallopt(M_MMAP_THRESHOLD, kKept);
    mallopt(M_TRIM_THRESHOLD, kKept);
    orvent::bench::run();
}
