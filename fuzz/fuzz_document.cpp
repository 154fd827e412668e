// Takes any text as a scenario. What is read is written, and comes back from there as it is.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "exchange/document_reader.h"
#include "exchange/document_writer.h"
#include "exchange/scenario_filler.h"

using namespace orvent;

namespace {

class Silence : public platform::MessageBox {
  public:
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        std::abort();  // a refused name is no news here
    }
};

struct Filled {
    Silence messages;
    canvas::CanvasSettings settings;
    entities::CatalogueTables tables;
    canvas::DrawForm form{{messages, settings}};

    std::string fill(exchange::Document document) {
        const exchange::TypeDefinitions types = document.types;
        const bool stored = document.stored.has_value();
        const std::string program = document.program;
        const exchange::TypeIndices indices = exchange::indicesIn(tables, document);
        exchange::fillForm(form, std::move(document), indices);
        return exchange::writeDocument(form, tables, types, {program, stored});
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    exchange::Document document;
    try {
        document = exchange::readDocument({reinterpret_cast<const char*>(data), size});
    } catch (const exchange::BadDocument&) {
        return 0;
    }
    std::string text = Filled().fill(std::move(document));
    // Mirrors of links that lead anywhere may lead somewhere else; once all are there the text stays.
    for (int round = 0;; ++round) {
        std::string again = Filled().fill(exchange::readDocument(text));
        if (again == text) {
            return 0;
        }
        if (round == 64) {
            std::abort();
        }
        text = std::move(again);
    }
}
