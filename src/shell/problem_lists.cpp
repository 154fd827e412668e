#include "shell/problem_lists.h"

namespace orvent::shell {

std::vector<ProblemLine> problemLines(const canvas::DrawForm& form, const analysis::ScenarioProblems& problems,
                                      const analysis::ProblemKinds& kinds) {
    std::vector<ProblemLine> lines;
    for (const analysis::Problem* row : problems.rows(kinds)) {
        const canvas::LabelsD* node = form.Labels.byIndex(row->node);
        lines.push_back({row->kind, row->node, node ? node->Caption() : std::string(), row->words});
    }
    return lines;
}

std::vector<ProblemLine> problemLines(const canvas::DrawForm& form, const entities::CatalogueTables& tables,
                                      const analysis::ProblemKinds& kinds) {
    const StatementChecks statements(tables);
    analysis::ScenarioProblems problems(form, {tables, statements});
    problems.settle();
    return problemLines(form, problems, kinds);
}

void ProblemLists::scenarioOpened(canvas::DrawForm& form) {
    problems_[&form] =
        std::make_unique<analysis::ScenarioProblems>(form, analysis::ProblemSources{tables_, statements_});
}

void ProblemLists::touch(const canvas::DrawForm& form, const canvas::Touched& touched) {
    if (const auto place = problems_.find(&form); place != problems_.end()) {
        place->second->touch(touched);
    }
}

bool ProblemLists::settle(const canvas::DrawForm& form) {
    const auto place = problems_.find(&form);
    return place != problems_.end() && place->second->settle();
}

std::vector<ProblemLine> ProblemLists::linesOf(const canvas::DrawForm& form,
                                               const analysis::ProblemKinds& kinds) const {
    const auto place = problems_.find(&form);
    return place == problems_.end() ? std::vector<ProblemLine>() : problemLines(form, *place->second, kinds);
}

analysis::Unfinished ProblemLists::unfinishedOf(const canvas::DrawForm& form,
                                                const analysis::ProblemKinds& kinds) const {
    analysis::Unfinished unfinished;
    if (const auto place = problems_.find(&form); place != problems_.end()) {
        for (const analysis::Problem* row : place->second->rows(kinds)) {
            unfinished.emplace_back(row->node, row->member);
        }
    }
    return unfinished;
}

}  // namespace orvent::shell
