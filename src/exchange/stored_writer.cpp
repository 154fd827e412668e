#include "exchange/stored_writer.h"

#include <algorithm>

#include "exchange/member_text.h"
#include "exchange/stored_rows.h"

namespace orvent::exchange {

namespace {

class StoredWriter {
  public:
    explicit StoredWriter(JsonText& out) : out_(out) {}

    void write(const canvas::DrawForm& form) {
        out_.open('{');
        begin(out_, Key::scenario);
        out_.number(form.ScenarioID);
        begin(out_, Key::changed);
        out_.boolean(form.stored.changed);
        begin(out_, Key::mark);
        mark(form.stored.mark);
        begin(out_, Key::rows);
        rows(form);
        begin(out_, Key::nodes);
        out_.open('[');
        for (const canvas::LabelsD& node : form.Labels) {
            out_.nextLine();
            write(node);
        }
        out_.close(']');
        begin(out_, Key::deleted);
        out_.open('[');
        for (const canvas::DeletedNode& row : *form.DeletedNodes) {
            out_.nextLine();
            out_.openInline('{');
            beginInline(out_, Key::kind);
            writeCode(out_, row.NodeKind);
            beginInline(out_, Key::id);
            out_.number(row.NodeID);
            out_.closeInline('}');
        }
        out_.close(']');
        out_.close('}');
    }

  private:
    void mark(std::uint64_t value) {
        char digits[17];
        out_.text({digits, std::to_chars(digits, digits + sizeof digits, value, 16).ptr});
    }

    void rows(const canvas::DrawForm& form) {
        std::vector<std::pair<long long, std::uint64_t>> marks(form.stored.rows.begin(), form.stored.rows.end());
        std::ranges::sort(marks);  // the table has no order of its own
        out_.open('[');
        for (const auto& [id, value] : marks) {
            out_.nextLine();
            out_.openInline('{');
            beginInline(out_, Key::id);
            out_.number(id);
            beginInline(out_, Key::mark);
            mark(value);
            out_.closeInline('}');
        }
        out_.close(']');
    }

    void write(const canvas::LabelsD& node) {
        std::vector<std::size_t> changed;
        std::size_t count = 0;
        out_.openInline('{');
        beginInline(out_, Key::ids);
        out_.openInline('[');
        eachRow(node.Properties, [&](std::int16_t id, const bool* isChanged) {
            out_.next();
            out_.number(id);
            if (isChanged && *isChanged) {
                changed.push_back(count);
            }
            ++count;
        });
        out_.closeInline(']');
        if (!changed.empty()) {
            beginInline(out_, Key::changed);
            out_.openInline('[');
            for (const std::size_t place : changed) {
                out_.next();
                out_.number(place);
            }
            out_.closeInline(']');
        }
        const auto* activity = node.activity();
        if (activity && activity->Act_Inputs.peek() && activity->Act_Inputs.peek()->Changed) {
            beginInline(out_, Key::inputsChanged);
            out_.boolean(true);
        }
        out_.closeInline('}');
    }

    JsonText& out_;
};

}  // namespace

void writeStored(JsonText& out, const canvas::DrawForm& form) {
    StoredWriter(out).write(form);
}

}  // namespace orvent::exchange
