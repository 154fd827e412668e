#include "repository/stored_content.h"

#include <bit>
#include <string>
#include <string_view>

#include "entities/members.h"
#include "repository/content_mark.h"
#include "repository/stored_links.h"

namespace orvent::repository {

namespace {

using namespace entities;

/// The width of the columns of names and keys.
constexpr std::size_t kNameWidth = 4000;

/// Walks over all that a save would write. `Visit` has `node(name)`, `text(field, value)` and `number(value)`.
template <class Visit>
class StoredFields {
  public:
    explicit StoredFields(Visit& visit) : visit_(visit) {}

    void walk(const canvas::DrawForm& form) {
        for (const canvas::LabelsD& node : form.Labels) {
            walk(node);
        }
        for (const canvas::LinesD& line : form.Lines) {
            const canvas::LabelsD* from = form.Labels.byIndex(line.FromLabel());
            const canvas::LabelsD* to = form.Labels.byIndex(line.ToLabel());
            if (from && to) {
                visit_.text("From_Label", from->Caption());
                visit_.text("To_Label", to->Caption());
                numbers(line.FromGrabbingPoint(), line.ToGrabbingPoint(), line.EdgeType(), line.Angle());
            }
        }
    }

  private:
    template <class... Numbers>
    void numbers(Numbers... values) {
        (visit_.number(static_cast<std::uint64_t>(values)), ...);
    }

    void walk(const canvas::LabelsD& node) {
        visit_.node(node.Caption());
        visit_.text("Node_Name", node.Caption());
        numbers(node.NodeType());
        for (const float side : {node.Left(), node.Top(), node.Width(), node.Height()}) {
            numbers(std::bit_cast<std::uint32_t>(side));
        }
        if (const ActivityProperties* activity = node.activity()) {
            walk(*activity);
        } else if (const RecordSetProperties* recordSet = node.recordSet()) {
            walk(*recordSet);
        } else if (const auto* comment = node.entity<CommentProperties>()) {
            visit_.longText("Comment_Text", comment->Comment);
        }
    }

    void walk(const ActivityProperties& activity) {
        visit_.longText("Activity_Descr", activity.Act_Description);
        visit_.longText("Activity_Log", activity.Act_Log);
        visit_.longText("Activity_SQL", activity.Act_SQL);
        visit_.longText("Activity_LDL", activity.Act_LDL);
        numbers(activity.Act_Type, activity.Act_SchemaNo);
        members(activity);
        each(activity.Act_Functions, [this](const FunctionProperties& function) {
            visit_.text("Function_Key", function.Function_Key);
            numbers(function.Function_Type, function.Function_Source);
            members(function);
        });
    }

    void walk(const RecordSetProperties& recordSet) {
        visit_.longText("RecordSet_SQL", recordSet.RecordSet_SQL);
        members(recordSet);
    }

    template <class Owner>
    void members(const Owner& owner) {
        eachList(owner, [&](const auto& list, NodeKindCode kind) {
            each(list, [&](const auto& member) {
                walk(member);
                if constexpr (requires { owner.dbKey(member.Key); }) {
                    visit_.text("DB_Key", owner.dbKey(member.Key));
                }
                eachStoredLinks(member, kind, [&](const auto& stored, sql::LinkKind) { links(stored); });
            });
        });
    }

    void walk(const AttributeProperties& attribute) {
        visit_.text("SubNode_Key", attribute.Key);
        visit_.text("SubNode_Name", attribute.Attribute_Name);
        numbers(attribute.NodeKind, attribute.Attribute_Type, attribute.Tag);
    }

    void walk(const ParameterProperties& parameter) {
        visit_.text("SubNode_Key", parameter.Key);
        visit_.text("SubNode_Name", parameter.Parameter_Name);
        numbers(parameter.NodeKind, parameter.Parameter_Type, parameter.Tag);
    }

    /// A list's items, with their number: what ends one list must not look like the beginning of the next.
    template <class Collection, class Walk>
    void each(const Lazy<Collection>& held, Walk walkItem) {
        const Collection* items = held.peek();
        numbers(items ? items->Count() : 0);
        if (items) {
            for (const auto& item : *items) {
                walkItem(item);
            }
        }
    }

    template <class Links>
    void links(const Lazy<Links>& held) {
        each(held, [this](const auto& link) {
            visit_.text("From_Key", link.key());
            visit_.text("From_Name", link.name());
            numbers(link.type());
        });
    }

    Visit& visit_;
};

/// Looks for a text that would be cut.
class NullCharacters {
  public:
    void node(const std::string& name) { node_ = &name; }
    void number(std::uint64_t) {}
    void longText(const char* field, std::string_view value) const { text(field, value); }
    void text(const char* field, std::string_view value) const {
        if (value.find('\0') != std::string_view::npos) {
            throw platform::Fault(std::string("The field ") + field + " of \"" + node_->c_str() +
                                  "\" holds a null character, which no repository can keep.\n"
                                  "Please remove it and save again.");
        }
    }

  private:
    const std::string* node_ = nullptr;
};

/// Looks for a text that is longer than its column.
class LongTexts {
  public:
    explicit LongTexts(platform::TextLimit limit) : limit_(limit) {}

    void node(const std::string& name) { node_ = &name; }
    void number(std::uint64_t) {}
    void longText(const char*, std::string_view) {}
    void text(const char* field, std::string_view value) const { text(field, value, limit_); }
    void text(const char* field, std::string_view value, platform::TextLimit limit) const {
        if (const std::string excess = limit.excess(value); !excess.empty()) {
            throw TextTooLong(std::string("The field ") + field + " of " + platform::quotedShort(*node_) + " " +
                              excess + ".\nPlease give a shorter name and save again.");
        }
    }

  private:
    const std::string* node_ = nullptr;
    platform::TextLimit limit_;
};

class ContentMark {
  public:
    void node(const std::string&) {}
    void number(std::uint64_t value) { mark_.number(value); }
    void longText(const char*, std::string_view value) { mark_.text(value); }
    void text(const char*, std::string_view value) { mark_.text(value); }
    std::uint64_t value() const { return mark_.value(); }

  private:
    Mark mark_;
};

}  // namespace

void refuseNullCharacters(const canvas::DrawForm& form) {
    NullCharacters search;
    search.node(form.Caption());
    search.text("Scenario_Name", form.ScenarioName());
    StoredFields(search).walk(form);
}

void refuseLongTexts(const canvas::DrawForm& form, const StatementCache& repository) {
    LongTexts search(repository.textLimit(kNameWidth, platform::TextColumn::plain));
    const std::string caption = form.Caption();
    search.node(caption);
    search.text("Scenario_Name", form.ScenarioName(), repository.textLimit(kNameWidth, platform::TextColumn::key));
    StoredFields(search).walk(form);
}

std::uint64_t contentMark(const canvas::DrawForm& form) {
    ContentMark mark;
    StoredFields(mark).walk(form);
    return mark.value();
}

void markStored(canvas::DrawForm& form) {
    form.stored.mark = contentMark(form);
    form.stored.changed = form.stored.forced = form.stored.broken = false;
    ++form.stored.times;
    form.deleted = false;
    form.tellStored();
}

void markUnsaved(canvas::DrawForm& form) {
    form.stored.forced = true;
    if (!form.stored.changed) {
        form.stored.changed = true;
        form.tellStored();
    }
}

void markBroken(canvas::DrawForm& form) {
    form.stored.broken = true;
    markUnsaved(form);
    form.tellStored();
}

bool isUnsaved(canvas::DrawForm& form) {
    if (!form.stored.changed && contentMark(form) != form.stored.mark) {
        form.stored.changed = true;
        form.tellStored();
    }
    return form.stored.changed;
}

}  // namespace orvent::repository
