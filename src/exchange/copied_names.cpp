#include "exchange/copied_names.h"

#include <unordered_set>

#include "exchange/statement_names.h"
#include "links/kept_mirrors.h"
#include "links/member_rename.h"
#include "links/propagate_rename.h"

namespace orvent::exchange {

namespace {

using canvas::LabelsD;
using entities::ActivityProperties;

/// Functions that were drawn by themselves; those that a type brought bear their activity's name.
std::unordered_set<std::string> ownFunctionKeys(const canvas::DrawForm& form) {
    std::unordered_set<std::string> keys;
    for (const LabelsD& node : form.Labels) {
        if (const ActivityProperties* activity = node.activity()) {
            for (const auto& function : activity->Act_Functions) {
                if (!entities::HasDot(function.Function_Key)) {
                    keys.insert(function.Function_Key);
                }
            }
        }
    }
    return keys;
}

class FreeNames {
  public:
    FreeNames(canvas::DrawForm& copy, const canvas::DrawForm& target)
        : copy_(copy), target_(target), functions_(ownFunctionKeys(target)), copied_(ownFunctionKeys(copy)) {}

    std::vector<UncertainStatement> give() {
        std::vector<Statement> statements;
        for (LabelsD& node : copy_.Labels) {
            ActivityProperties* activity = node.activity();
            if (activity && !activity->Act_LDL.empty()) {
                statements.push_back({activity, StatementNames(*activity)});
            }
        }
        for (LabelsD& node : copy_.Labels) {
            renameNode(node);
        }
        for (LabelsD& node : copy_.Labels) {
            if (ActivityProperties* activity = node.activity()) {
                renameFunctions(*activity);
            }
        }
        return rewriteStatements(statements);
    }

  private:
    struct Statement {
        ActivityProperties* activity;
        StatementNames names;
    };
    struct Renamed {
        NamePair name;
        const LabelsD* node;
    };

    void renameNode(LabelsD& node) {
        const std::string former = node.Caption();
        if (!target_.isNameTaken(former) && !functions_.contains(former)) {
            return;
        }
        const std::string now = freeCopyName(former, [this](const std::string& name) {
            return target_.isNameTaken(name) || copy_.isNameTaken(name) || functions_.contains(name);
        });
        node.setCaption(now);
        renamed_.push_back({{former, now}, &node});
        if (ActivityProperties* activity = node.activity()) {
            renameActivity(*activity, former, now);
        } else if (auto* recordSet = node.recordSet()) {
            links::renameOwner(copy_, *recordSet, former, now);
        }
    }

    /// What the type brought bears the activity's name; so do the members downstream that it feeds.
    void renameActivity(ActivityProperties& activity, const std::string& former, const std::string& now) {
        std::vector<std::string> formerKeys;
        for (const auto& output : activity.Act_Outputs) {
            formerKeys.push_back(output.Key);
        }
        links::renameOwner(copy_, activity, former, now);
        auto formerKey = formerKeys.begin();
        for (auto& output : activity.Act_Outputs) {
            if (*formerKey != output.Key) {
                links::PropagateRename(copy_, output, *formerKey);
            }
            ++formerKey;
        }
    }

    void renameFunctions(ActivityProperties& activity) {
        std::vector<std::string> keys;
        for (const auto& function : activity.Act_Functions) {
            if (functions_.contains(function.Function_Key) || target_.isNameTaken(function.Function_Key)) {
                keys.push_back(function.Function_Key);
            }
        }
        for (const std::string& key : keys) {
            const std::string now = freeCopyName(key, [this](const std::string& name) {
                return functions_.contains(name) || copied_.contains(name) || target_.isNameTaken(name) ||
                       copy_.isNameTaken(name);
            });
            copied_.insert(now);
            links::rekeyMember(copy_, *activity.Act_Functions, key, now);
            activity.Act_Functions->Item(now)->Function_Name = now;
        }
    }

    /// All new names of the copy.
    NameIndex newNames() const {
        NameIndex names;
        for (const auto& [name, node] : renamed_) {
            if (const auto* recordSet = node->recordSet()) {
                names.addRecordSet(name, *recordSet);
            } else if (node->activity()) {
                names.addRenamed(name.former, name.now);
            }
        }
        return names;
    }

    std::vector<UncertainStatement> rewriteStatements(std::vector<Statement>& statements) const {
        std::vector<UncertainStatement> uncertain;
        if (statements.empty()) {
            return uncertain;
        }
        const NameIndex copied = newNames();
        for (auto& [activity, names] : statements) {
            names.follow(*activity);
            std::string why;
            if (auto text = names.rewritten(activity->Act_LDL, copied, why)) {
                activity->Act_LDL = std::move(*text);
            } else {
                activity->statementDoubt = why;
                uncertain.push_back({activity->Act_Name, why});
            }
        }
        return uncertain;
    }

    canvas::DrawForm& copy_;
    const canvas::DrawForm& target_;
    std::unordered_set<std::string> functions_;  ///< of the window
    std::unordered_set<std::string> copied_;     ///< of the copy
    std::vector<Renamed> renamed_;
};

}  // namespace

std::string freeCopyName(const std::string& name, const std::function<bool(const std::string&)>& isTaken) {
    std::string free = name;
    for (int number = 2; isTaken(free); ++number) {
        free = name + "_" + std::to_string(number);
    }
    return free;
}

std::vector<UncertainStatement> giveFreeNames(canvas::DrawForm& copy, const canvas::DrawForm& target) {
    return FreeNames(copy, target).give();
}

}  // namespace orvent::exchange
