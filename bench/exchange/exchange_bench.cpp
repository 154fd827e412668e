// A scenario as a document in figures: writing and reading beside the JSON library's own dump and parse of the same
// text, and how they grow with the scenario.

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "bench/graphs.h"
#include "exchange/document_reader.h"
#include "exchange/document_writer.h"
#include "exchange/scenario_filler.h"

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

void run() {
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
