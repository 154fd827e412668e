#pragma once

#include "links/check_consistency.h"
#include "platform/dialogs.h"
#include "shell/desk.h"
#include "shell/frame_host.h"
#include "shell/plain_forms.h"

namespace orvent::shell {

/// The command "Consistency". Behind the check the status line tells what it drew and deleted, and opens the list of
/// it.
class ConsistencyCheck {
  public:
    ConsistencyCheck(FrameHost& host, Desk& desk, platform::Progress& progress)
        : host_(host), desk_(desk), progress_(progress) {}

    void run(canvas::DrawForm& form) {
        const std::optional<links::EdgeChanges> changes = links::CheckConsistency(form, progress_);
        if (!changes) {
            return;
        }
        told_ = &form;
        if (changes->drawn.empty() && changes->deleted.empty()) {
            progress_.status(changeWords(*changes));
        } else {
            progress_.statusWith(changeWords(*changes), [this, &form, all = *changes] { show(form, all); });
        }
    }

    /// Another window came forward, or none: the changes of a scenario that is not in front are no news.
    void cameForward(const canvas::DrawForm* form) {
        if (told_ && form != told_) {
            told_ = nullptr;
            progress_.status("Ready");
        }
    }

  private:
    /// While the status line tells of a scenario, that is open.
    void show(canvas::DrawForm& form, const links::EdgeChanges& changes) {
        EdgeChangesForm list{changes};
        host_.dialogs().show(list);
        if (list.chosen < 0) {
            return;
        }
        std::vector<links::EdgeNames> rows = changes.deleted;
        rows.insert(rows.end(), changes.drawn.begin(), changes.drawn.end());
        if (const canvas::LabelsD* node = form.nodeNamed(rows[static_cast<std::size_t>(list.chosen)].to)) {
            desk_.reveal(form, *node);
        }
    }

    FrameHost& host_;
    Desk& desk_;
    platform::Progress& progress_;
    const canvas::DrawForm* told_ = nullptr;  ///< of which the status tells; only compared
};

}  // namespace orvent::shell
