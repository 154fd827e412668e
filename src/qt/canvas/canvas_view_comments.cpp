// The scroll bars of comments whose text is longer than their box.

#include "qt/canvas/canvas_view.h"
#include "qt/canvas/comment_bar.h"

namespace orvent::qt {

/// The comment whose bar lies at a place, or nothing.
const canvas::LabelsD* CanvasViewWidget::commentBarAt(QPointF pixel) const {
    const canvas::Hit hit = hitAt(pixel);
    const canvas::LabelsD* node =
        hit.element == canvas::Element::node ? std::as_const(canvas_).Labels.byIndex(hit.node) : nullptr;
    if (!node || node->NodeType() != canvas::NodeTypeComment || node->onText(transform().toTwips(pixel)) ||
        detailAt(scale()) != Detail::full) {
        return nullptr;
    }
    const CaptionCache::Caption* caption = painter_.nodes().cache().laidOut(node->Index());
    return caption && caption->scrolls() ? node : nullptr;
}

bool CanvasViewWidget::scrollComment(const canvas::LabelsD& node, int first) {
    const bool changed = painter_.nodes().cache().scrollTo(node.Index(), first);
    if (changed) {
        painter_.markDirty(extentOf(node));
    }
    return changed;
}

bool CanvasViewWidget::takeCommentBar(QPointF pixel) {
    const canvas::LabelsD* node = commentBarAt(pixel);
    scrolledComment_ = node ? node->Index() : canvas::kNoNode;
    return node && (dragCommentBar(pixel), true);
}

bool CanvasViewWidget::dragCommentBar(QPointF pixel) {
    const canvas::LabelsD* node = std::as_const(canvas_).Labels.byIndex(scrolledComment_);
    const CaptionCache::Caption* caption = node ? painter_.nodes().cache().laidOut(node->Index()) : nullptr;
    if (!caption) {
        return false;
    }
    const CommentBar bar(transform().toPixels(boxOf(*node)), scale(), *caption);
    scrollComment(*node, bar.firstLineAt(pixel.y(), *caption));
    return true;
}

bool CanvasViewWidget::dropCommentBar() {
    return std::exchange(scrolledComment_, canvas::kNoNode) != canvas::kNoNode;
}

}  // namespace orvent::qt
