#include "zoom/zoom_view.h"

namespace orvent::zoom {

ZoomView::ZoomView(const ZoomServices& services, canvas::DrawForm& design)
    : CanvasForm(services.canvas), services_(services), design_(design) {
    PicForm.setLargest(kLargestPicture);
    DeletedNodes = design.DeletedNodes;
    appliedRows_ = DeletedNodes->mark();
}

void ZoomView::OwnRenames::memberRenamed(const canvas::Rename& rename) {
    if (rename.kind != entities::KindFree) {
        view.order.rename(rename.function.empty() ? rename.owner : rename.function, rename.kind, rename.former,
                          rename.now);
    }
    if (rename.kind == entities::KindFree || !rename.owner.empty()) {
        view.renames.push_back(rename);
    }
}

void ZoomView::touch() {
    edited_ = true;
    if (!unapplied_) {
        unapplied_ = true;
        tellForm();
    }
}

void ZoomView::applied() {
    keepDeletedRows();
    renames.clear();
    unapplied_ = false;
    tellForm();
}

void ZoomView::setSight(const ZoomSight& sight) {
    sight_ = sight;
    tellForm();
}

void ZoomView::setDisorder(Disorder disorder) {
    if (disorder_ != disorder) {
        disorder_ = disorder;
        tellForm();
    }
}

}  // namespace orvent::zoom
