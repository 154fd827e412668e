// Takes any records as the state of a scenario. What is read fills a window, is written, and comes back from there as
// it is.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "history/kept_state.h"
#include "history/scenario_history.h"
#include "history/state_records.h"

using namespace orvent;

namespace {

class Silence : public platform::MessageBox {
  public:
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        return platform::Answer::ok;
    }
};

/// The records of a file with sums that are right whatever the bytes are.
std::string summed(std::string_view bytes) {
    std::string out;
    while (!bytes.empty()) {
        const auto kind = static_cast<history::Record>(bytes.front());
        bytes.remove_prefix(1);
        const auto size = history::takeNumber(bytes);
        const std::size_t taken = size ? static_cast<std::size_t>(std::min<std::uint64_t>(*size, bytes.size())) : 0;
        history::RecordWriter(out, kind).bytes(bytes.substr(0, taken));
        bytes.remove_prefix(std::min(bytes.size(), taken + history::kSumBytes));
    }
    return out;
}

/// The state of a window that was filled with another one.
std::string filled(history::KeptState state) {
    Silence messages;
    canvas::CanvasSettings settings;
    entities::CatalogueTables tables;
    canvas::DrawForm form{{messages, settings}};
    state.rows.clear();  // they have no order
    history::fillForm(form, std::move(state), tables, history::TakenOver::withRows);
    const history::ScenarioHistory history(form);
    history::StateWriter writer("source", tables);
    writer.begin(form, history.remembered());
    std::string out;
    for (std::string part; !(part = writer.nextPart(history.remembered(), 1000)).empty();) {
        out += part;
    }
    return out + history::StateWriter::endAsBegun();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = summed({reinterpret_cast<const char*>(data), size});
    std::string first;
    try {
        history::readSummary([&bytes](std::uint64_t from, std::size_t most) { return bytes.substr(from, most); },
                             bytes.size());
        first = filled(history::readState(bytes));
    } catch (const platform::Fault&) {
        return 0;
    }
    if (filled(history::readState(first)) != first) {
        std::abort();
    }
    return 0;
}
