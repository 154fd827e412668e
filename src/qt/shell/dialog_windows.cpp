#include "qt/shell/dialog_windows.h"

#include <QMainWindow>
#include <QPointer>
#include <memory>

#include "qt/analysis/metrics_window.h"
#include "qt/editors/connect_window.h"
#include "qt/editors/in_out_window.h"
#include "qt/editors/item_window.h"
#include "qt/editors/record_set_prop_window.h"
#include "qt/editors/selection_window.h"
#include "qt/editors/set_act_prop_window.h"
#include "qt/editors/take_over_window.h"
#include "qt/editors/type_editor_window.h"
#include "qt/platform/working_window.h"
#include "qt/repository/db_login_window.h"
#include "qt/repository/repos_form_window.h"
#include "qt/repository/user_login_window.h"
#include "qt/repository/view_scenarios_window.h"
#include "qt/shell/about_form.h"
#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "qt/shell/earlier_window.h"
#include "qt/shell/edge_changes_window.h"
#include "qt/shell/export_sql_window.h"
#include "qt/shell/facts_window.h"
#include "qt/shell/missing_types_window.h"
#include "qt/shell/options_window.h"
#include "qt/shell/recovery_window.h"
#include "qt/shell/shortcuts_form.h"
#include "qt/statements/ldl_form_window.h"
#include "qt/statements/unfinished_window.h"
#include "shell/plain_forms.h"

namespace orvent::qt {

namespace {

/// `Window` shows `Form`.
template <class Form, class Window>
void add(forms::Dialogs& dialogs, QWidget& frame) {
    dialogs.add<Form>([&frame](Form& form) {
        const WorkingWindow over(&frame);
        if constexpr (std::is_constructible_v<Window, Form&, QWidget*>) {
            Window(form, over.widget()).exec();
        } else {
            Window(over.widget()).exec();
        }
    });
}

/// The same for a window that takes the sizes of its last opening, by which name it is known.
template <class Form, class Window>
void addSized(forms::Dialogs& dialogs, QWidget& frame, SizeMemory& sizes, const char* name) {
    dialogs.add<Form>([&frame, &sizes, name](Form& form) {
        const WorkingWindow over(&frame);
        Window(form, sizes.of(name), over.widget()).exec();
        sizes.store(name);
    });
}

/// The dialog of an activity, beside which the program goes on, with its window; it goes when that is closed.
struct OpenActivity : QObject {
    OpenActivity(std::unique_ptr<editors::SetActProp> form, SizeMemory& sizes, QWidget& frame)
        : QObject(&frame), logic(std::move(form)), window(*logic, sizes.of("SetActProp"), &frame) {
        setObjectName(QLatin1String(kOpenDialog));
        connect(&window, &QDialog::finished, this, [this, &sizes, &frame] {
            sizes.store("SetActProp");
            frame.activateWindow();
            deleteLater();
        });
        // Who wants to go on with its scenario finds what holds it.
        if (auto* area = frame.findChild<DeskArea*>()) {
            connect(area, &DeskArea::pressedInVain, this, [this, area](QWidget* pressed) {
                if (pressed == area->windowOf(logic->ParForm)) {
                    window.raise();
                    window.activateWindow();
                }
            });
        }
    }

    const std::unique_ptr<editors::SetActProp> logic;
    SetActPropWindow window;
};

}  // namespace

void addDialogWindows(forms::Dialogs& dialogs, QWidget& frame, SizeMemory& sizes) {
    add<repository::UserLogin, UserLoginWindow>(dialogs, frame);
    add<repository::ReposForm, ReposFormWindow>(dialogs, frame);
    add<repository::frmDBLogin, DBLoginWindow>(dialogs, frame);
    add<repository::ViewScenarios, ViewScenariosWindow>(dialogs, frame);
    add<shell::OptionsForm, OptionsWindow>(dialogs, frame);
    add<statements::LDLForm, LDLFormWindow>(dialogs, frame);
    dialogs.add<shell::UnfinishedForm>([&frame](shell::UnfinishedForm& form) {
        const WorkingWindow over(&frame);
        UnfinishedWindow window(form.statements, over.widget());
        window.exec();
        if (window.chosen() >= 0) {
            form.goTo = form.statements[static_cast<std::size_t>(window.chosen())].node;
        }
        form.generate = window.generates();
        form.confirm = window.confirms();
    });
    dialogs.add<shell::EdgeChangesForm>([&frame](shell::EdgeChangesForm& form) {
        const WorkingWindow over(&frame);
        EdgeChangesWindow window(form.changes, over.widget());
        window.exec();
        form.chosen = window.chosen();
    });
    dialogs.addWindow<editors::SetActProp>([&frame, &sizes](std::unique_ptr<editors::SetActProp> form) {
        (new OpenActivity(std::move(form), sizes, frame))->window.show();
    });
    addSized<editors::RecordSetProp, RecordSetPropWindow>(dialogs, frame, sizes, "RecordSetProp");
    dialogs.add<editors::TypeEditor>([&frame, &sizes](editors::TypeEditor& form) {
        const WorkingWindow over(&frame);
        TypeEditorWindow(form, sizes.of(form.words.window), over.widget()).exec();
        sizes.store(form.words.window);
    });
    add<editors::ConnectByName, ConnectWindow>(dialogs, frame);
    add<editors::SelectionProp, SelectionWindow>(dialogs, frame);
    add<editors::TakeOverForm, TakeOverWindow>(dialogs, frame);
    add<editors::InOutProp, InOutWindow>(dialogs, frame);
    add<editors::ItemProp, ItemWindow>(dialogs, frame);
    // There is one window of metrics at a time.
    dialogs.addWindow<analysis::MetricsForm>(
        [&frame, last = QPointer<MetricsWindow>()](std::unique_ptr<analysis::MetricsForm> form) mutable {
            if (last) {
                last->close();
            }
            last = new MetricsWindow(std::move(form), &frame);
            if (auto* area = qobject_cast<QMainWindow*>(&frame)) {
                area->addDockWidget(Qt::BottomDockWidgetArea, last);
                area->resizeDocks({last.data()}, {frame.height() * 9 / 20}, Qt::Vertical);
            }
            last->show();
        });
    add<exchange::MissingTypesForm, MissingTypesWindow>(dialogs, frame);
    add<shell::RecoveryForm, RecoveryWindow>(dialogs, frame);
    add<shell::EarlierForm, EarlierWindow>(dialogs, frame);
    add<shell::ExportSqlForm, ExportSqlWindow>(dialogs, frame);
    add<shell::FactsForm, FactsWindow>(dialogs, frame);
    add<shell::SourceLogin, SourceLoginWindow>(dialogs, frame);
    add<shell::ShortcutsForm, ShortcutsForm>(dialogs, frame);
    add<shell::AboutForm, AboutForm>(dialogs, frame);
}

}  // namespace orvent::qt
