#include "qt/statements/ldl_form_window.h"

#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "qt/forms/fields.h"
#include "qt/statements/guide.h"
#include "qt/statements/keep_place.h"
#include "qt/statements/template_box.h"
#include "qt/statements/text_pair.h"
#include "qt/statements/variable_list.h"
#include "qt/statements/variable_panel.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"
#include "statements/ldl_guide.h"

namespace orvent::qt {

namespace {

using statements::LDLButton;
using statements::LDLForm;

constexpr QSize kWizardSize(1040, 730);
constexpr int kWizardMargin = 40;  // a window's title and a strip of what lies below
constexpr int kVariablesHeight = 130;
constexpr int kButtonHeight = 28;
constexpr int kLowWindow = 700;  // below it the texts and fields need the place of what is told twice
constexpr int kTextsStretch = 3;
constexpr int kPanelStretch = 4;  // names stand beside each other there

/// A group that is the frame of its one widget.
QVBoxLayout& putInto(QGroupBox& group, QAbstractScrollArea& contents) {
    contents.setFrameShape(QFrame::NoFrame);
    auto* layout = new QVBoxLayout(&group);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(&contents);
    return *layout;
}

/// The quiet line that says which text stands above it, and the controls at its end.
void addLine(QVBoxLayout& below, QLabel& words, const std::vector<QWidget*>& controls = {}) {
    words.setForegroundRole(QPalette::PlaceholderText);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(Spacing::gap, 0, Spacing::gap / 2, 2);
    row->setSpacing(Spacing::gap);
    row->addWidget(&words, 1);
    for (QWidget* control : controls) {
        row->addWidget(control);
    }
    below.addLayout(row);
}

}  // namespace

LDLFormWindow::LDLFormWindow(LDLForm& logic, QWidget* parent)
    : FormWindow(tr("Generate From LDL"), parent), logic_(logic) {
    setObjectName(QStringLiteral("LDLForm"));
    if (logic_.Activity) {
        setWindowTitle(tr("%1 — Generate From LDL").arg(QString::fromStdString(logic_.Activity->Act_Name)));
    }
    addTop();
    auto* sides = new QHBoxLayout;
    sides->setSpacing(Spacing::section);
    sides->addWidget(newTemplateSide(), kTextsStretch);
    variableSide_ = newVariableSide();
    sides->addWidget(variableSide_, kPanelStretch);
    body().addLayout(sides, 1);
    whyNotOK_ = &addNote(QStringLiteral("whyNotOK"));
    whyNotOK_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    cmdOK_ = &addAccept(QStringLiteral("cmdOK"), tr("&OK"), [this] {
        logic_.cmdOK();
        showState();
        return !logic_.isOpen();
    });
    addCancel(QStringLiteral("cmdCancel"));
    if (!statements::LDLGuide(logic_).roundText().empty()) {
        addSideButton(QStringLiteral("cmdLeaveRest"), tr("&Leave The Rest"), [this] {
            logic_.cmdLeaveRest();
            cancel();
        });
    }
    showState();
    resize(kWizardSize.boundedTo(screen()->availableSize() - QSize(kWizardMargin, kWizardMargin)));
    if (logic_.CurrentVariable) {
        panel_->focusKind();
    } else {
        guided_.front().shown->button().setFocus();
    }
}

/// What the activity's type does, which activity of several it is, and the guide.
void LDLFormWindow::addTop() {
    const auto addWords = [this](const char* name, const std::string& words) {
        auto* line = new QLabel(QString::fromStdString(words), this);
        line->setObjectName(QLatin1String(name));
        line->setTextFormat(Qt::PlainText);
        line->setWordWrap(true);
        line->setVisible(!words.empty());
        body().addWidget(line);
        return line;
    };
    addWords("round", statements::LDLGuide(logic_).roundText());
    type_ = addWords("type", logic_.isOpen() ? statements::LDLGuide(logic_).typeText() : std::string());
    guide_ = new GuideStrip(this, [this](const QString& variable) { goTo(variable); });
    body().addSpacing(Spacing::gap / 2);
    body().addWidget(guide_);
    body().addSpacing(Spacing::gap);
}

/// The text box, and beside it the template while the box shows the statement.
QWidget* LDLFormWindow::newTexts(QWidget* side) {
    texts_ = new TextPair(Qt::Vertical, side);
    texts_->setChildrenCollapsible(false);
    frameOriginal_ = new QGroupBox(tr("Before Generating"), texts_);
    original_ = new TemplateBox(frameOriginal_);
    original_->setObjectName(QStringLiteral("original"));
    original_->setReadOnly(true);
    addLine(putInto(*frameOriginal_, *original_), *new QLabel(tr("The template"), frameOriginal_));
    auto* frameTemplate = new QGroupBox(QLatin1String(statements::kFrameTemplateCaption), texts_);
    frameTemplate->setObjectName(QStringLiteral("frameTemplate"));
    txtTemplate_ = new TemplateBox(frameTemplate);
    txtTemplate_->setObjectName(QStringLiteral("txtTemplate"));
    whichText_ = new QLabel(frameTemplate);
    whichText_->setObjectName(QStringLiteral("whichText"));
    addChoices(*frameTemplate);
    addLine(putInto(*frameTemplate, *txtTemplate_), *whichText_, {wholeNumbers_, editTemplate_});
    connect(txtTemplate_, &QTextEdit::textChanged, this, [this] {
        logic_.txtTemplate = txtTemplate_->edited();
        showState();
    });
    return texts_;
}

/// What can be done with the template, beside the line that names it.
void LDLFormWindow::addChoices(QGroupBox& frame) {
    wholeNumbers_ = new QCheckBox(tr("Whole Numbers"), &frame);
    wholeNumbers_->setObjectName(QStringLiteral("wholeNumbers"));
    wholeNumbers_->setToolTip(tr("A_IN1_10 is one name, and not A_IN1_1 with a 0 behind it."));
    connect(wholeNumbers_, &QCheckBox::clicked, this, [this](bool on) {
        logic_.setWholeNumbers(on);
        showState();
    });
    editTemplate_ = new QPushButton(tr("&Edit Template"), &frame);
    editTemplate_->setObjectName(QStringLiteral("cmdEditTemplate"));
    editTemplate_->setAutoDefault(false);
    editTemplate_->setToolTip(tr("Gives the template back to be edited; what was defined is lost."));
    connect(editTemplate_, &QPushButton::clicked, this, [this] { act(&LDLForm::cmdEditTemplate); });
    keepPlace(*editTemplate_);
}

QWidget* LDLFormWindow::newTemplateSide() {
    auto* side = new QWidget(this);
    QWidget* texts = newTexts(side);
    frameVariables_ = new QGroupBox(tr("Variables"), side);
    variables_ = new VariableList(frameVariables_, [this](const QString& variable) { goTo(variable); });
    variables_->setFixedHeight(kVariablesHeight);
    putInto(*frameVariables_, *variables_);

    auto* stages = new QHBoxLayout;
    stages->setSpacing(Spacing::gap);
    stages->addWidget(
        newButton(LDLButton::cmdParseLDL, "cmdParseLDL", statements::kParseCaption, 'P', &LDLForm::cmdParseLDL), 1);
    stages->addWidget(newButton(LDLButton::cmdGenerateLDL, "cmdGenerateLDL", statements::kGenerateCaption, 'G',
                                &LDLForm::cmdGenerateLDL),
                      1);
    stages->addWidget(
        newButton(LDLButton::cmdCreateAct, "cmdCreateAct", statements::kCreateCaption, 'A', &LDLForm::cmdCreateAct), 1);

    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins({});
    rows->setSpacing(Spacing::margin);
    rows->addWidget(texts, 1);
    rows->addWidget(frameVariables_);
    rows->addLayout(stages);
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
    columns->addWidget(newButton(LDLButton::cmdPrev, "cmdPrev", statements::kPrevCaption, 'r', &LDLForm::cmdPrev), 1);
    columns->addWidget(place_, 1, Qt::AlignTop);
    columns->addWidget(newButton(LDLButton::cmdNext, "cmdNext", statements::kNextCaption, 'N', &LDLForm::cmdNext), 1);
    auto* rows = new QVBoxLayout(side);
    rows->setContentsMargins({});
    rows->setSpacing(Spacing::margin);
    // What a low screen cannot show is scrolled to.
    auto* room = new QScrollArea(side);
    room->setFrameShape(QFrame::NoFrame);
    room->setWidgetResizable(true);
    room->setFocusPolicy(Qt::NoFocus);
    room->viewport()->setAutoFillBackground(false);
    panel_->setAutoFillBackground(false);
    room->setWidget(panel_);
    rows->addWidget(room, 1);
    rows->addWidget(steps_);
    return side;
}

GuidedButton* LDLFormWindow::newButton(LDLButton which, const char* name, const char* caption, char letter,
                                       Event step) {
    auto* button = new GuidedButton(QLatin1String(name), withLetter(QLatin1String(caption), QLatin1Char(letter)), this);
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
    return QString::fromStdString(statements::LDLGuide(logic_).whyDisabled(which));
}

void LDLFormWindow::showButtons() {
    const LDLButton next = statements::LDLGuide(logic_).leadsOn();
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

void LDLFormWindow::showGuide() {
    using Mood = statements::LDLGuide::Mood;
    const statements::LDLGuide guide(logic_);
    const auto line = [](const statements::Advice& advice) {
        return GuideLine{QString::fromStdString(advice.words), QString::fromStdString(advice.variable)};
    };
    const std::vector<statements::Advice> faults = guide.faults();
    const std::vector<statements::Advice> advice = guide.advice();
    std::vector<GuideLine> notes;
    // The hint tells the first fault.
    for (std::size_t at = faults.empty() ? 0 : 1; at < advice.size(); ++at) {
        notes.push_back(line(advice[at]));
    }
    const Mood mood = guide.mood();
    guide_->show(icon(mood == Mood::complete  ? QStringLiteral("complete")
                      : mood == Mood::missing ? QStringLiteral("warning")
                                              : QStringLiteral("about")),
                 QString::fromStdString(guide.progressText()),
                 {QString::fromStdString(guide.hint()), faults.empty() ? QString() : line(faults.front()).target},
                 notes);
    wholeNumbers_->setVisible(guide.offersWholeNumbers());
}

void LDLFormWindow::goTo(const QString& variable) {
    logic_.goTo(variable.toStdString());
    showState();
    panel_->focusKind();
}

void LDLFormWindow::showState() {
    if (!logic_.isOpen()) {
        return;
    }
    showGuide();
    frameOriginal_->setVisible(logic_.hasStatement());
    whichText_->setText(logic_.hasStatement() ? tr("The generated statement") : tr("The template"));
    original_->showTemplate(logic_.OriginalTemplate, logic_.templateMarks());
    wholeNumbers_->setChecked(logic_.WholeNumbers());
    editTemplate_->setVisible(!logic_.Enabled.txtTemplate);
    txtTemplate_->setReadOnly(!logic_.Enabled.txtTemplate);
    txtTemplate_->showTemplate(logic_.txtTemplate, logic_.marks);
    // Two texts need the list's place; the steps lead to the variables, too.
    frameVariables_->setVisible(logic_.Visible.frameVar && !logic_.hasStatement());
    showType();
    variables_->showState(logic_);
    variableSide_->setVisible(logic_.Visible.frameVar);
    panel_->showState();
    steps_->setVisible(logic_.Visible.steps);
    place_->setText(logic_.CurrentVariable
                        ? tr("%1 of %2").arg(logic_.CurrentVariable->Index).arg(logic_.Variables.Count())
                        : QString());
    showButtons();
}

/// In a low window the variable's own words stand for those of the type.
void LDLFormWindow::showType() {
    type_->setVisible(!type_->text().isEmpty() && (height() >= kLowWindow || !logic_.Visible.frameVar));
}

void LDLFormWindow::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    showType();
}

void LDLFormWindow::done(int result) {
    if (logic_.isOpen()) {
        logic_.cmdCancel();
    }
    FormWindow::done(result);
}

}  // namespace orvent::qt
