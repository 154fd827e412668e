#include "qt/statements/ldl_form_window.h"

#include <QAbstractScrollArea>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "qt/statements/guide.h"
#include "qt/statements/template_box.h"
#include "qt/statements/variable_list.h"
#include "qt/statements/variable_panel.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

using statements::LDLButton;
using statements::LDLForm;

constexpr QSize kSize(1040, 730);
constexpr int kVariablesHeight = 150;
constexpr int kButtonHeight = 28;

/// A group that is the frame of its one widget.
void putInto(QGroupBox& group, QAbstractScrollArea& contents) {
    contents.setFrameShape(QFrame::NoFrame);
    auto* layout = new QVBoxLayout(&group);
    layout->setContentsMargins({});
    layout->addWidget(&contents);
}

}  // namespace

LDLFormWindow::LDLFormWindow(LDLForm& logic, QWidget* parent)
    : DialogBase(tr("Generate From LDL"), parent), logic_(logic) {
    setObjectName(QStringLiteral("LDLForm"));
    if (logic_.Activity) {
        setWindowTitle(tr("%1 — Generate From LDL").arg(QString::fromStdString(logic_.Activity->Act_Name)));
    }
    guide_ = new GuideStrip(this);
    body().addWidget(guide_);
    body().addSpacing(Spacing::gap);
    auto* sides = new QHBoxLayout;
    sides->setSpacing(Spacing::section);
    sides->addWidget(newTemplateSide(), 1);
    variableSide_ = newVariableSide();
    sides->addWidget(variableSide_, 1);
    body().addLayout(sides, 1);
    whyNotOK_ = &addNote(QStringLiteral("whyNotOK"));
    whyNotOK_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    cmdOK_ = &addAccept(QStringLiteral("cmdOK"), tr("OK"), [this] {
        logic_.cmdOK();
        showState();
        return !logic_.isOpen();
    });
    addCancel(QStringLiteral("cmdCancel"));
    showState();
    resize(kSize);
    guided_.front().shown->button().setFocus();
}

QWidget* LDLFormWindow::newTemplateSide() {
    auto* side = new QWidget(this);
    auto* frameTemplate = new QGroupBox(QLatin1String(statements::kFrameTemplateCaption), side);
    frameTemplate->setObjectName(QStringLiteral("frameTemplate"));
    txtTemplate_ = new TemplateBox(frameTemplate);
    txtTemplate_->setObjectName(QStringLiteral("txtTemplate"));
    putInto(*frameTemplate, *txtTemplate_);
    frameVariables_ = new QGroupBox(tr("Variables"), side);
    variables_ = new VariableList(frameVariables_);
    variables_->setFixedHeight(kVariablesHeight);
    putInto(*frameVariables_, *variables_);

    auto* stages = new QHBoxLayout;
    stages->setSpacing(Spacing::gap);
    stages->addWidget(
        newButton(LDLButton::cmdParseLDL, "cmdParseLDL", statements::kParseCaption, &LDLForm::cmdParseLDL), 1);
    stages->addWidget(
        newButton(LDLButton::cmdGenerateLDL, "cmdGenerateLDL", statements::kGenerateCaption, &LDLForm::cmdGenerateLDL),
        1);
    stages->addWidget(
        newButton(LDLButton::cmdCreateAct, "cmdCreateAct", statements::kCreateCaption, &LDLForm::cmdCreateAct), 1);

    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins({});
    rows->setSpacing(Spacing::margin);
    rows->addWidget(frameTemplate, 1);
    rows->addWidget(frameVariables_);
    rows->addLayout(stages);
    connect(txtTemplate_, &QTextEdit::textChanged, this, [this] {
        logic_.txtTemplate = txtTemplate_->edited();
        showState();
    });
    return side;
}

QWidget* LDLFormWindow::newVariableSide() {
    auto* side = new QWidget(this);
    panel_ = new VariablePanel(
        logic_, [this] { showState(); }, side);
    steps_ = new QWidget(side);
    place_ = new QLabel(steps_);
    place_->setObjectName(QStringLiteral("step"));
    place_->setAlignment(Qt::AlignCenter);
    place_->setFixedHeight(kButtonHeight);
    auto* columns = new QHBoxLayout(steps_);
    columns->setContentsMargins({});
    columns->addWidget(newButton(LDLButton::cmdPrev, "cmdPrev", statements::kPrevCaption, &LDLForm::cmdPrev), 1);
    columns->addWidget(place_, 1, Qt::AlignTop);
    columns->addWidget(newButton(LDLButton::cmdNext, "cmdNext", statements::kNextCaption, &LDLForm::cmdNext), 1);
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins({});
    rows->setSpacing(Spacing::margin);
    rows->addWidget(panel_, 1);
    rows->addWidget(steps_);
    return side;
}

GuidedButton* LDLFormWindow::newButton(LDLButton which, const char* name, const char* caption, Event step) {
    auto* button = new GuidedButton(QLatin1String(name), QLatin1String(caption), this);
    connect(&button->button(), &QPushButton::clicked, this, [this, step] { act(step); });
    guided_.push_back({which, button});
    return button;
}

void LDLFormWindow::act(Event step) {
    const statements::LDLVariable* before = logic_.CurrentVariable;
    (logic_.*step)();
    showState();
    if (logic_.CurrentVariable && logic_.CurrentVariable != before) {
        panel_->focusKind();
    }
}

QString LDLFormWindow::reason(LDLButton which) const {
    return QString::fromStdString(logic_.whyDisabled(which));
}

void LDLFormWindow::showButtons() {
    const LDLButton next = logic_.leadsOn();
    for (const Button& button : guided_) {
        const bool startsOver = button.which == LDLButton::cmdParseLDL && logic_.CurrentVariable;
        button.shown->show(reason(button.which), startsOver ? tr("Starts over from the template.") : QString());
        button.shown->button().setDefault(button.which == next);
    }
    const QString notOK = reason(LDLButton::cmdOK);
    cmdOK_->setEnabled(notOK.isEmpty());
    cmdOK_->setAutoDefault(false);
    cmdOK_->setDefault(next == LDLButton::cmdOK);
    cmdOK_->setToolTip(notOK);
    whyNotOK_->setText(notOK);
}

void LDLFormWindow::showState() {
    if (!logic_.isOpen()) {
        return;
    }
    const bool whole = logic_.CurrentVariable && logic_.isComplete(*logic_.CurrentVariable);
    guide_->show(icon(whole ? QStringLiteral("complete") : QStringLiteral("about")),
                 QString::fromStdString(logic_.progressText()), QString::fromStdString(logic_.hint()));
    txtTemplate_->setReadOnly(!logic_.Enabled.txtTemplate);
    txtTemplate_->showTemplate(logic_.txtTemplate, logic_.marks);
    frameVariables_->setVisible(logic_.Visible.frameVar);
    variables_->showState(logic_);
    variableSide_->setVisible(logic_.Visible.frameVar);
    panel_->showState();
    steps_->setVisible(logic_.Visible.steps);
    place_->setText(logic_.CurrentVariable
                        ? tr("%1 of %2").arg(logic_.CurrentVariable->Index).arg(logic_.Variables.Count())
                        : QString());
    showButtons();
}

void LDLFormWindow::reject() {
    if (logic_.isOpen()) {
        logic_.cmdCancel();
    }
    DialogBase::reject();
}

}  // namespace orvent::qt
