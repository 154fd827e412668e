#include "canvas/labels.h"

#include <algorithm>
#include <charconv>
#include <type_traits>
#include <utility>

#include "canvas/canvas_settings.h"
#include "canvas/graph.h"
#include "canvas/names2index.h"

namespace orvent::canvas {

namespace {

constexpr float kLeastWidth = 201;
constexpr float kLeastHeight = 152;
const std::string kNoText;

/// The number that follows the first `skipped` characters of a name; 0 when there are no digits.
long long numberBehind(const std::string& name, std::size_t skipped) {
    long long number = 0;
    if (name.size() > skipped) {
        std::from_chars(name.data() + skipped, name.data() + name.size(), number);
    }
    return number;
}

/// The field of what a node holds that has the identifier of its row. `Held` is const or not.
struct RowField {
    template <class Held>
    auto operator()(Held& held) const -> std::conditional_t<std::is_const_v<Held>, const std::int16_t*, std::int16_t*> {
        if constexpr (requires { held->NodeID; }) {
            return held ? &held->NodeID : nullptr;
        } else if constexpr (std::is_same_v<std::remove_const_t<Held>, std::int16_t>) {
            return &held;
        } else {
            return nullptr;
        }
    }
};

}  // namespace

void LabelsD::setLeft(float value) {
    setBox({value, Top(), Width(), Height()});
}
void LabelsD::setTop(float value) {
    setBox({Left(), value, Width(), Height()});
}
void LabelsD::setWidth(float value) {
    setBox({Left(), Top(), value, Height()});
}
void LabelsD::setHeight(float value) {
    setBox({Left(), Top(), Width(), value});
}

void LabelsD::setBox(const Box& value) {
    box_ = {value.Left, value.Top, std::max(value.Width, kLeastWidth), std::max(value.Height, kLeastHeight)};
    moved();
}

/// Something has changed that a scenario keeps.
void LabelsD::tell() {
    if (told_) {
        graph_.touch(*this);
    }
    tellLook();
}

void LabelsD::tellLook() {
    if (told_) {
        graph_.tellChanged(*this);
    }
}

void LabelsD::moved() {
    if (told_) {
        graph_.touchBox(*this);
    }
    tellLook();
    std::visit(
        [](auto& held) {
            if constexpr (requires { held->Changed = true; }) {
                if (held) {
                    held->Changed = true;
                }
            }
        },
        Properties);
    graph_.nodeMoved(*this);
}

std::shared_ptr<const void> LabelsD::entityShare() {
    return std::visit(
        [](auto& held) -> std::shared_ptr<const void> {
            if constexpr (requires { held.share(); }) {
                return held.share();
            } else {
                return nullptr;
            }
        },
        Properties);
}

void LabelsD::StartingLinesClear() {
    detachAll(EdgeEnd::start);
}
void LabelsD::EndingLinesClear() {
    detachAll(EdgeEnd::end);
}

void LabelsD::detachAll(EdgeEnd which) {
    for (const EdgeNumber number : std::exchange(linesAt(which), LineNumbers())) {
        graph_.detachEnd(number, which);
    }
}

void LabelsD::setNodeType(NodeTypeCode value) {
    nodeType_ = value;
}

void LabelsD::setKeyName(const std::string& value) {
    const std::string former = caption_;
    takeName(value);
    if (caption_ != former) {
        tell();
    }
}

void LabelsD::takeName(const std::string& value) {
    graph_.names().Release(index_, keyName_);
    if (graph_.names().Add(index_, value) != kNoNode) {
        keyName_ = value;
        return;
    }
    const NodeKind& kind = nodeKind(nodeType_);
    if (kind.naming == Naming::numbered) {
        takeNumberedName(kind.tool, value);
        return;
    }
    keyName_ = kErrorName;
    caption_ = kErrorName;
    graph_.nameRefused();
}

// The node's own KeyName keeps its old value, deliberately; the caption takes the fresh name, so that the edges of two
// comments can be told apart in the repository.
void LabelsD::takeNumberedName(std::string_view word, const std::string& taken) {
    long long number = numberBehind(taken, word.size());
    std::string fresh;
    do {
        fresh = std::string(word) + std::to_string(++number);
    } while (graph_.names().Add(index_, fresh) == kNoNode);
    caption_ = fresh;
}

void LabelsD::releaseNames() {
    graph_.names().Release(index_, keyName_);
    if (nodeKind(nodeType_).naming == Naming::numbered) {
        graph_.names().Release(index_, caption_);
    }
}

void LabelsD::setCaption(const std::string& value) {
    const std::string former = caption_;
    caption_ = value;
    if (nodeKind(nodeType_).naming != Naming::own) {
        if (former != keyName_) {
            graph_.names().Release(index_, former);  // a numbered name that only the caption held
        }
        takeName(value);
    }
    tell();
}

void LabelsD::showCaption(const std::string& value) {
    caption_ = value;
    tell();
}

std::string_view LabelsD::shownText() const {
    switch (nodeType_) {
        case NodeTypeLog:
            return nodeKind(nodeType_).word;
        case NodeTypeComment:
            return Comment();
        default:
            return caption_;
    }
}

const std::string& LabelsD::Comment() const {
    const auto* comment = entity<entities::CommentProperties>();
    return comment ? comment->Comment : kNoText;
}

void LabelsD::setComment(const std::string& value) {
    if (auto* comment = entity<entities::CommentProperties>()) {
        comment->Comment = value;
        tell();
    }
}

std::int16_t* LabelsD::rowIdentifier() {
    return nodeKind(nodeType_).deleted == entities::KindFree ? nullptr : std::visit(RowField{}, Properties);
}

const std::int16_t* LabelsD::rowIdentifier() const {
    return nodeKind(nodeType_).deleted == entities::KindFree ? nullptr : std::visit(RowField{}, Properties);
}

void LabelsD::setReady(bool value) {
    if (told_ && ready_ != value) {
        graph_.touch(*this);
    }
    ready_ = value;
    if (!nodeKind(nodeType_).showsReadiness) {
        return;
    }
    const std::int32_t plain = value ? ReadyColor : NotReadyColor;
    const bool selected = graph_.isSelected(*this);
    setColor((selected ? plain ^ graph_.settings().SelColor : plain) & 0xFFFFFF);
}

void LabelsD::setColor(std::int32_t value) {
    color_ = value;
    tellLook();
}

void LabelsD::setVisible(bool value) {
    visible_ = value;
    tellLook();
}

void LabelsD::setToolTipText(const std::string& value) {
    toolTipText_ = value;
}

}  // namespace orvent::canvas
