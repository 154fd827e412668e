#include "app/cli_facts.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "platform/fault.h"
#include "platform/text.h"
#include "run/row_text.h"

namespace orvent::app {

namespace fs = std::filesystem;

namespace {

constexpr const char* kCsv = ".csv";

}  // namespace

void readFacts(canvas::DrawForm& form, const std::string& folder, AnsweredBox& box) {
    std::error_code failed;
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, failed)) {
        if (entry.path().extension() == kCsv) {
            files.push_back(entry.path());
        }
    }
    if (failed) {
        throw platform::Fault(folder + ": " + failed.message());
    }
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        const canvas::LabelsD* node = form.nodeNamed(file.stem().string());
        const auto* recordSet = node ? node->recordSet() : nullptr;
        if (!recordSet) {
            box.tell("There is no record set for " + file.string() + ".", {}, platform::Icon::warning);
            continue;
        }
        std::vector<std::string> columns;
        for (const entities::AttributeProperties& column : recordSet->RecordSet_Outputs) {
            columns.push_back(column.Attribute_Name);
        }
        try {
            form.facts[node->Index()].facts = run::factsFrom(platform::readFile(file.string()), columns);
        } catch (const platform::Fault& fault) {
            throw platform::Fault(file.string() + ": " + fault.description());
        }
    }
}

}  // namespace orvent::app
