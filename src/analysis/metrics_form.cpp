#include "analysis/metrics_form.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "analysis/metrics_text.h"
#include "platform/fault.h"
#include "platform/text.h"

namespace orvent::analysis {

MetricsForm::MetricsForm(const MetricsServices& services, int scenario) : services_(services), scenario_(scenario) {
    EntitiesView();
}

void MetricsForm::turn(Face to, const char* entityLabel, const char* switchText, const char* nameHead) {
    face = to;
    lblEntity = entityLabel;
    Switch = switchText;
    nameColumn = nameHead;
    Counter = services_.TransDepth;
    selected = -1;
    twoLists = false;
    note.clear();
    views.clear();
    list();
    showState();
}

void MetricsForm::list() {
    Entities.clear();
    if (face == Face::Scenarios) {
        for (const int scenario : services_.scenarios.open()) {
            Entities.push_back({services_.scenarios.at(scenario)->Caption(), scenario, {}});
        }
    } else if (const canvas::DrawForm* form = services_.scenarios.at(scenario_)) {
        for (const canvas::LabelsD& node : form->Labels) {
            if (node.NodeType() == canvas::NodeTypeRecordSet || node.NodeType() == canvas::NodeTypeActivity) {
                Entities.push_back({node.Caption(), scenario_, node.Index()});
            }
        }
    }
}

void MetricsForm::EntitiesView() {
    turn(Face::Entities, "Structured Entities", "Scenario Metrics", kAttributeNameHead);
}

void MetricsForm::ScenariosView() {
    turn(Face::Scenarios, "Scenarios:", "Entities Metrics", kNodeNameHead);
}

void MetricsForm::clickEntity(int position) {
    const int former = selected;
    selected = position >= 0 && position < static_cast<int>(Entities.size()) ? position : -1;
    const Entry* entry = selected < 0 ? nullptr : &Entities[static_cast<std::size_t>(selected)];
    const canvas::DrawForm* form = entry ? services_.scenarios.at(entry->scenario) : nullptr;
    const bool whole = !form || form->Enabled();
    note = whole ? std::string() : form->Caption() + " is counted when its dialog or zoom is closed.";
    if (whole || selected != former) {
        views.clear();
        twoLists = false;
    }
    try {
        if (form && whole) {
            count(*form, *entry);
        }
    } catch (...) {
        showState();
        throw;  // told by whoever runs commands
    }
    showState();
    if (views.beyond != 0 && !std::exchange(toldBeyond_, true)) {
        throw platform::Fault("Overflow: " + std::to_string(views.beyond) +
                              " does not fit in 16 bits. It is shown as it is.");
    }
}

void MetricsForm::count(const canvas::DrawForm& form, const Entry& entry) {
    MetricsFunctions metrics(views, Counter, &services_.progress);
    if (face == Face::Scenarios) {
        metrics.ScenarioMetrics(form);
    } else if (const canvas::LabelsD* node = form.nodeNamed(entry.name)) {
        twoLists = node->activity() != nullptr;
        metrics.EntityMetrics(form, *node);
    }
}

void MetricsForm::changeCounter(std::int16_t value) {
    Counter = services_.TransDepth = std::max<std::int16_t>(value, 0);
    services_.store.setValue("General", "TransDepth", std::to_string(Counter));
}

void MetricsForm::RefreshBut() {
    if (selected < 0) {
        list();
        showState();
        return;
    }
    const Entry chosen = Entities[static_cast<std::size_t>(selected)];
    list();
    const auto again = std::find_if(Entities.begin(), Entities.end(), [&chosen](const Entry& entry) {
        return entry.scenario == chosen.scenario && entry.node == chosen.node;
    });
    selected = again == Entities.end() ? -1 : static_cast<int>(again - Entities.begin());
    clickEntity(selected);
}

void MetricsForm::clickSwitch() {
    if (face == Face::Entities) {
        ScenariosView();
    } else {
        EntitiesView();
    }
}

void MetricsForm::lblButLittle(std::size_t Index) {
    sorted_ = true;
    ascending_ = !ascending_;
    sortColumn_ = Index;
    showState();
}

std::vector<std::size_t> MetricsForm::order(const std::vector<MetricsRow>& view) const {
    std::vector<std::size_t> places(view.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    if (sorted_) {
        std::stable_sort(places.begin(), places.end(), [&](std::size_t one, std::size_t other) {
            const std::int32_t a = view[one].values[sortColumn_], b = view[other].values[sortColumn_];
            return ascending_ ? a < b : b < a;
        });
    }
    return places;
}

std::int32_t MetricsForm::largest(std::size_t column) const {
    std::int32_t value = 0;
    for (const auto* view : {&views.InpMetrView, &views.OutMetrView}) {
        for (const MetricsRow& row : *view) {
            value = std::max(value, row.values[column]);
        }
    }
    return value;
}

std::string MetricsForm::hint() const {
    const bool entities = face == Face::Entities;
    if (!note.empty()) {
        return {};
    }
    if (selected < 0) {
        return Entities.empty() ? entities ? "There is no record set and no activity." : "No scenario is open."
               : entities       ? "Choose a record set or an activity."
                                : "Choose a scenario.";
    }
    return twoLists ? "No inputs." : entities ? "No attributes." : "No nodes.";
}

int MetricsForm::scenarioOfTables() const {
    return selected < 0 ? -1 : Entities[static_cast<std::size_t>(selected)].scenario;
}

void MetricsForm::reveal(const MetricsRow& row) {
    const canvas::DrawForm* form = services_.scenarios.at(scenarioOfTables());
    if (form && form->Labels.byIndex(row.node)) {
        services_.scenarios.reveal(scenarioOfTables(), row.node);
    }
}

std::string MetricsForm::asText(char separator) const {
    MetricsViews shown = views;
    for (auto* view : {&shown.InpMetrView, &shown.OutMetrView}) {
        const std::vector<MetricsRow> rows = *view;
        std::ranges::transform(order(rows), view->begin(), [&rows](std::size_t at) { return rows[at]; });
    }
    return metricsText(shown, nameColumn, separator);
}

void MetricsForm::saveAsCsv() const {
    const std::string path = services_.saveDialog.saveFile(
        "Save the metrics", "Tables (*.csv)|*.csv", services_.folder.root().string(), platform::OldFile::askedAbout);
    if (!path.empty()) {
        platform::writeFile(path, asText(','));
    }
}

void MetricsForm::showState() const {
    if (show) {
        show();
    }
}

}  // namespace orvent::analysis
