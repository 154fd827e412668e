// The frame's part in the Edit menu: what is done with the selected nodes.

#include "canvas/arrangement.h"
#include "canvas/fit_to_names.h"
#include "editors/connect_by_name.h"
#include "shell/mdi_form.h"

namespace orvent::shell {

namespace {

using canvas::EditAction;

/// By way of the clipboard.
void carry(ScenarioClipboard& clipboard, canvas::DrawForm& design, EditAction action,
           std::optional<canvas::Point> pointer) {
    switch (action) {
        case EditAction::cut:
            return clipboard.cut(design);
        case EditAction::copy:
            return clipboard.copy(design);
        case EditAction::paste:
            return clipboard.paste(design, pointer);
        case EditAction::duplicate:
            return clipboard.duplicate(design);
        default:
            return;
    }
}

}  // namespace

void MDIForm1::connectByName(canvas::CanvasForm& form) {
    editors::ConnectByName dialog(ports_.messages, catalogue_.tables, form);
    if (!dialog.whyNot.empty()) {
        tools_.hint(dialog.whyNot);
        return;
    }
    host_.dialogs().show(dialog);
    tools_.hint(dialog.connected == 0   ? ""
                : dialog.connected == 1 ? "1 pair connected."
                                        : std::to_string(dialog.connected) + " pairs connected.");
}

void MDIForm1::edit(canvas::CanvasForm& form, EditAction action) {
    if (canvas::isArrangement(action)) {
        histories_.settle();
        tools_.hint(canvas::arrange(form, action));
        histories_.settle(std::string(canvas::wordsOf(action)));
    } else if (action == EditAction::fitToNames) {
        histories_.settle();
        const int wider = canvas::fitToNames(form, canvas::nodesToFit(form), desk_);
        tools_.hint(wider > 0 ? "" : "The names stand whole in their boxes already.");
        histories_.settle("Fit To Names");
    } else if (action == EditAction::connectByName) {
        histories_.settle();
        connectByName(form);
        histories_.settle("Connect By Name");
    } else if (action == EditAction::typeAndSize) {
        histories_.settle();
        dialogs_.showSelection(form);
        histories_.settle("Type And Size");
    } else if (const auto* view = dynamic_cast<const zoom::ZoomView*>(&form)) {
        clipboard_.copyText(*view);
    } else {
        carry(clipboard_, form.scenario(), action, desk_.pointerIn(form.scenario()));
    }
}

}  // namespace orvent::shell
