#include "exchange/document_writer.h"

#include <unordered_map>

#include "exchange/document.h"
#include "exchange/entity_writer.h"
#include "exchange/facts_text.h"
#include "exchange/member_text.h"
#include "exchange/stored_writer.h"
#include "exchange/type_writer.h"

namespace orvent::exchange {

namespace {

constexpr std::size_t kProbe = 256;  ///< so many nodes tell how long the text will be

class DocumentWriter {
  public:
    DocumentWriter(const Extract& extract, const entities::CatalogueTables& tables, const WriteOptions& options)
        : extract_(extract), options_(options), entities_(out_, extract, tables) {}

    std::string write(const TypeDefinitions& types, const canvas::DrawForm* form) {
        out_.open('{');
        begin(out_, Key::format);
        out_.text(kFormat);
        begin(out_, Key::version);
        out_.number(kVersion);
        begin(out_, Key::program);
        out_.text(options_.program);
        begin(out_, Key::name);
        out_.text(extract_.name);
        if (extract_.keepDuplicates) {
            begin(out_, Key::duplicates);
            out_.boolean(true);
        }
        begin(out_, Key::nodes);
        out_.open('[');
        for (const canvas::LabelsD* node : extract_.nodes) {
            writeNode(*node);
            if (numbers_.size() == kProbe) {
                out_.expect(extract_.nodes.size() / kProbe + 1);
            }
        }
        out_.close(']');
        begin(out_, Key::edges);
        out_.open('[');
        for (const canvas::LinesD* edge : extract_.edges) {
            writeEdge(*edge);
        }
        out_.close(']');
        begin(out_, Key::types);
        writeTypes(out_, types);
        if (form && options_.stored) {
            begin(out_, Key::stored);
            writeStored(out_, *form);
        }
        out_.close('}');
        return out_.take();
    }

  private:
    void writeNode(const canvas::LabelsD& node) {
        const std::size_t number = numbers_.size();
        numbers_.emplace(node.Index(), number);
        out_.nextLine();
        out_.open('{');
        begin(out_, Key::name);
        out_.text(node.Caption());
        begin(out_, Key::kind);
        writeCode(out_, node.NodeType());
        begin(out_, Key::box);
        out_.openInline('[');
        for (const float side : {node.Left(), node.Top(), node.Width(), node.Height()}) {
            out_.next();
            out_.number(side);
        }
        out_.closeInline(']');
        entities_.write(node);
        if (const auto* facts = extract_.facts; facts && facts->contains(node.Index())) {
            writeFacts(out_, facts->at(node.Index()));
        }
        out_.close('}');
    }

    void writeEnd(Key key, canvas::NodeNumber label) {
        beginInline(out_, key);
        const canvas::LabelsD& node = *extract_.nodes[numbers_.at(label)];
        if (node.Caption() == canvas::kErrorName) {
            out_.number(numbers_.at(label));  // several nodes may bear it
        } else {
            out_.text(node.Caption());
        }
    }

    void writeEdge(const canvas::LinesD& edge) {
        if (!numbers_.contains(edge.FromLabel()) || !numbers_.contains(edge.ToLabel())) {
            return;  // one that is being drawn
        }
        out_.nextLine();
        out_.openInline('{');
        writeEnd(Key::from, edge.FromLabel());
        beginInline(out_, Key::fromPoint);
        out_.number(edge.FromGrabbingPoint());
        writeEnd(Key::to, edge.ToLabel());
        beginInline(out_, Key::toPoint);
        out_.number(edge.ToGrabbingPoint());
        beginInline(out_, Key::kind);
        writeCode(out_, edge.EdgeType());
        beginInline(out_, Key::angle);
        writeCode(out_, edge.Angle());
        out_.closeInline('}');
    }

    JsonText out_;
    const Extract& extract_;
    const WriteOptions& options_;
    EntityWriter entities_;
    std::unordered_map<canvas::NodeNumber, std::size_t> numbers_;  ///< of the nodes that are written, by `Index`
};

}  // namespace

std::string writeDocument(const Extract& extract, const entities::CatalogueTables& tables, const TypeDefinitions& types,
                          const WriteOptions& options) {
    return DocumentWriter(extract, tables, options).write(types, nullptr);
}

std::string writeDocument(const canvas::DrawForm& form, const entities::CatalogueTables& tables,
                          const TypeDefinitions& types, const WriteOptions& options) {
    return DocumentWriter(Extract::all(form), tables, options).write(types, &form);
}

}  // namespace orvent::exchange
