#pragma once

#include <map>
#include <random>
#include <string>
#include <vector>

#include "statements/wizard_fixture.h"
#include "testkit/embedded_repository.h"

namespace orvent::sql {

/// A value of a fact: the text of a number or a text, or NULL.
struct Fact {
    bool null = false;
    std::string text;
};
using FactRow = std::vector<Fact>;

/// A column of a flow.
struct FlowColumn {
    std::string name;
    bool number;
};

/// What an activity may read: a record set or the outputs of another one.
struct Flow {
    std::string node;
    bool recordSet;
    std::vector<FlowColumn> columns;
};

/// Draws a random scenario of starter types, whose statements the wizard generates, and the rows of its record sets.
class WalkScenario {
  public:
    WalkScenario(canvas::DrawForm& form, testkit::StoredCatalogue& catalogue, platform::MessageBox& messages,
                 unsigned seed)
        : form_(form), graph_(form), catalogue_(catalogue), messages_(messages), random_(seed) {}

    void draw(int activities);

    std::vector<FactRow> facts(const std::vector<bool>& numbers);
    bool calls() const { return calls_; }
    bool averages() const { return averages_; }

  private:
    /// What the wizard is told of one variable of a template.
    struct Answer {
        statements::LDLVariableType kind;
        std::string name;
        std::vector<std::string> values;  ///< "in <source> <at>", "rs <record set> <at>", "const <text>"
    };
    struct Step {
        std::string type;
        std::vector<Flow> sources;
        std::vector<FlowColumn> outputs;  ///< by hand
        std::vector<Answer> answers;
        std::vector<FlowColumn> made;  ///< what the wizard adds
        std::string target;            ///< a record set to be fed by the outputs in order
    };

    int below(std::size_t count) {
        return static_cast<int>(std::uniform_int_distribution<std::size_t>(0, count - 1)(random_));
    }
    bool chance(int percent) { return below(100) < percent; }
    std::string columnName();
    std::int16_t typeOf(const FlowColumn& column) const;
    std::string constant(bool number);
    Flow recordSet(const std::vector<FlowColumn>& columns);
    Flow anyFlow() { return flows_[static_cast<std::size_t>(below(flows_.size()))]; }
    Step anyStep();
    void addKeys(Step& step, const char* variable, bool order);
    bool addPairs(Step& step, const char* first, const char* second);
    void carryOut(const Step& step);
    void answer(statements::LDLForm& wizard, const Step& step);
    void feedTarget();
    void link(const Flow& from, std::size_t at, const std::string& to);

    canvas::DrawForm& form_;
    testkit::GraphBuilder graph_;
    testkit::StoredCatalogue& catalogue_;
    platform::MessageBox& messages_;
    std::mt19937 random_;
    std::vector<Flow> flows_;
    int names_ = 0, nodes_ = 0;
    bool calls_ = false, averages_ = false;
};

}  // namespace orvent::sql
