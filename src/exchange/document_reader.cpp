#include "exchange/document_reader.h"

#include <unordered_map>
#include <unordered_set>

#include "exchange/entity_reader.h"
#include "exchange/facts_text.h"
#include "exchange/stored_reader.h"
#include "exchange/type_reader.h"
#include "exchange/value_reader.h"

namespace orvent::exchange {

namespace {

using Place = JsonTree::Place;

constexpr float kFarthest = 1e8F;  ///< of a box from the picture's corner, twips
constexpr float kLargestBox = 1e6F;

class DocumentReader {
  public:
    explicit DocumentReader(const JsonTree& tree) : in_(tree), entities_(in_, document_) {}

    Document read() {
        checkFormat();
        in_.tree().refuseUnknown();
        in_.object(0, keySet({Key::format, Key::version, Key::program, Key::name, Key::duplicates, Key::nodes,
                              Key::edges, Key::types, Key::stored}));
        document_.name = in_.text(in_.required(0, Key::name));
        document_.program = in_.textOf(0, Key::program);
        const Place duplicates = in_.tree().member(0, Key::duplicates);
        document_.keepDuplicates = duplicates != JsonTree::kNowhere && in_.boolean(duplicates);
        in_.each(in_.required(0, Key::nodes), [this](Place at) { readNode(at); });
        in_.eachOf(0, Key::edges, [this](Place at) { readEdge(at); });
        if (const Place types = in_.tree().member(0, Key::types); types != JsonTree::kNowhere) {
            document_.types = readTypes(in_, types);
        }
        if (const Place stored = in_.tree().member(0, Key::stored); stored != JsonTree::kNowhere) {
            document_.stored = readStored(in_, stored, document_);
        }
        return std::move(document_);
    }

  private:
    /// What comes first: another file, or one of a later program, is told as that.
    void checkFormat() const {
        const JsonTree& tree = in_.tree();
        const bool isObject = tree.kind(0) == JsonKind::object;
        const Place format = isObject ? tree.member(0, Key::format) : JsonTree::kNowhere;
        if (format == JsonTree::kNowhere || tree.kind(format) != JsonKind::text || tree.text(format) != kFormat) {
            throw BadDocument(std::string("This is no scenario: it does not say \"format\": \"") + kFormat + "\".");
        }
        const Place version = in_.required(0, Key::version);
        if (in_.integer(version, 1, INT64_MAX) > kVersion) {
            throw BadDocument("This scenario was written by a later program: its format is version " +
                              std::to_string(tree.integer(version)) + ", and this program reads version " +
                              std::to_string(kVersion) + ".");
        }
    }

    canvas::Box box(Place at) const {
        std::vector<Place> sides;
        in_.each(at, [&sides](Place side) { sides.push_back(side); });
        if (sides.size() != 4) {
            in_.tree().refuse(at, "expected left, top, width and height");
        }
        return {in_.twips(sides[0], kFarthest), in_.twips(sides[1], kFarthest), in_.twips(sides[2], kLargestBox),
                in_.twips(sides[3], kLargestBox)};
    }

    void readNode(Place at) {
        if (in_.tree().kind(at) != JsonKind::object) {
            in_.wrongKind(at, "an object");
        }
        Document::Node node;
        const Place name = in_.required(at, Key::name);
        node.caption = in_.text(name);
        node.kind = in_.code<canvas::NodeTypeCode>(in_.required(at, Key::kind));
        node.box = box(in_.required(at, Key::box));
        node.entity = entities_.read(at, node);
        node.facts = readFacts(in_, at);
        const bool isNew = numbers_.emplace(node.caption, document_.nodes.size()).second;
        // A node whose name was refused bears this one instead, and there may be several.
        if (!isNew && node.caption != canvas::kErrorName) {
            in_.tree().refuse(name, "another node has the name \"" + node.caption + "\"");
        }
        document_.nodes.push_back(std::move(node));
    }

    /// A node by its name, or by its place where the name is not its own.
    std::size_t end(Place at) const {
        if (in_.tree().kind(at) != JsonKind::text) {
            return static_cast<std::size_t>(in_.integer(at, 0, static_cast<std::int64_t>(document_.nodes.size()) - 1));
        }
        const auto node = numbers_.find(in_.text(at));
        if (node == numbers_.end()) {
            in_.tree().refuse(at, "there is no node \"" + in_.text(at) + "\"");
        }
        return node->second;
    }

    void readEdge(Place at) {
        in_.object(at, keySet({Key::from, Key::fromPoint, Key::to, Key::toPoint, Key::kind, Key::angle}));
        Document::Edge edge;
        edge.from = end(in_.required(at, Key::from));
        edge.to = end(in_.required(at, Key::to));
        edge.fromPoint = in_.small(in_.required(at, Key::fromPoint));
        edge.toPoint = in_.small(in_.required(at, Key::toPoint));
        edge.kind = in_.codeOr(at, Key::kind, canvas::EdgeTypeProvider);
        edge.angle = in_.codeOr(at, Key::angle, canvas::AngleNone);
        document_.edges.push_back(edge);
    }

    ValueReader in_;
    Document document_;
    EntityReader entities_;
    std::unordered_map<std::string, std::size_t> numbers_;
};

}  // namespace

Document readDocument(std::string_view text) {
    return readDocument(JsonTree(text));
}

Document readDocument(const JsonTree& tree) {
    return DocumentReader(tree).read();
}

}  // namespace orvent::exchange
