#include "qt/statements/variable_panel.h"

#include <QFontDatabase>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/statements/bunch_choice.h"
#include "qt/statements/keep_place.h"
#include "qt/statements/option_group.h"
#include "qt/statements/value_panel.h"
#include "qt/text.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"
#include "statements/ldl_guide.h"

namespace orvent::qt {

namespace {

using statements::LDLForm;

constexpr int kArityWidth = 100;
constexpr int kOptionColumns = 3;
constexpr int kIcon = 16;
constexpr const char *kRole = "take", *kFormer = "former", *kType = "type";  // what a proposal's link takes

/// A number field in which Enter takes the number over and presses no button.
class NumberField : public QSpinBox {
  public:
    using QSpinBox::QSpinBox;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        QSpinBox::keyPressEvent(event);
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            event->accept();
        }
    }
};

}  // namespace

VariablePanel::VariablePanel(LDLForm& logic, std::function<void()> changed, QWidget* parent)
    : QWidget(parent), logic_(logic), changed_(std::move(changed)) {
    frameVar_ = newKinds();
    frameArrity_ = newArity();
    value_ = new ValuePanel(logic_, changed_, this);
    auto* values = new QHBoxLayout;
    values->setSpacing(Spacing::margin);
    values->addWidget(frameArrity_);
    values->addWidget(value_, 1);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(Spacing::gap);
    rows->addWidget(frameVar_);
    rows->addLayout(values, 1);
}

QGroupBox* VariablePanel::newKinds() {
    auto* frame = new QGroupBox(QLatin1String(statements::kFrameVarCaption), this);
    frame->setObjectName(QStringLiteral("frameVar"));
    lblVariable_ = new QLabel(frame);
    lblVariable_->setObjectName(QStringLiteral("lblVariable"));
    lblVariable_->setTextFormat(Qt::PlainText);
    QFont large = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    large.setPointSizeF(font().pointSizeF() * 1.35);
    large.setBold(true);
    lblVariable_->setFont(large);

    scalars_ = new QWidget(frame);
    arrays_ = new QWidget(frame);
    auto* arrayOf = new QLabel(QLatin1String(statements::kArrayCaption), arrays_);
    arrayOf->setObjectName(QStringLiteral("lblArray"));
    arrayOf->setForegroundRole(QPalette::PlaceholderText);
    QGridLayout* const grids[] = {new QGridLayout(scalars_), new QGridLayout(arrays_)};
    for (QGridLayout* grid : grids) {
        grid->setContentsMargins({});
        grid->setVerticalSpacing(Spacing::gap / 2);
    }
    kinds_ = new OptionGroup(frame, [this](int number) {
        logic_.chooseKind(static_cast<statements::LDLVariableType>(number));
        changed_();
    });
    int scalar = 0;
    int array = 0;
    for (const statements::LDLKindOption& option : statements::kLDLKindOptions) {
        QRadioButton& button = kinds_->add(option.kind, option.name, option.caption);
        int& place = option.array ? array : scalar;
        // The first row of the array options is their common caption.
        grids[option.array]->addWidget(&button, option.array + place / kOptionColumns, place % kOptionColumns);
        ++place;
    }
    grids[1]->addWidget(arrayOf, 0, 0);

    auto* rows = new QVBoxLayout(frame);
    rows->setContentsMargins(Spacing::margin, Spacing::gap, Spacing::margin, Spacing::gap);
    rows->setSpacing(Spacing::gap);
    addWords(*frame);
    auto* head = new QHBoxLayout;
    head->setSpacing(Spacing::margin);
    head->addWidget(lblVariable_, 0, Qt::AlignTop);
    head->addWidget(meaning_, 1);
    rows->addLayout(head);
    rows->addWidget(proposal_);
    rows->addWidget(scalars_);
    rows->addWidget(arrays_);
    return frame;
}

/// What the variable stands for, and what the template makes plain of it.
void VariablePanel::addWords(QGroupBox& frame) {
    meaning_ = new QLabel(&frame);
    meaning_->setObjectName(QStringLiteral("meaning"));
    meaning_->setTextFormat(Qt::PlainText);
    meaning_->setWordWrap(true);
    meaning_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    meaning_->installEventFilter(this);
    proposal_ = new QLabel(&frame);
    proposal_->setObjectName(QStringLiteral("proposal"));
    proposal_->setTextFormat(Qt::RichText);
    proposal_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    proposal_->setWordWrap(true);
    keepPlace(*proposal_);  // what lies below stays where it is when the proposal is taken
    connect(proposal_, &QLabel::linkActivated, this, [this](const QString& what) {
        if (what == QLatin1String(kFormer)) {
            logic_.takeFormer();
        } else if (what == QLatin1String(kType)) {
            logic_.takeComparedType();
        } else {
            logic_.chooseKind(statements::LDLGuide(logic_).proposal().kind);
        }
        changed_();
    });
}

void VariablePanel::showWords() {
    const statements::LDLGuide guide(logic_);
    const QString meaning =
        logic_.CurrentVariable ? QString::fromStdString(guide.meaningOf(*logic_.CurrentVariable)) : QString();
    meaning_->setText(meaning);
    meaning_->setVisible(!meaning.isEmpty());
    keepMeaningRoom();
    const statements::TemplateRole role = guide.proposal();
    const std::string former = logic_.formerWords(), compared = logic_.comparedWords();
    const auto propose = [this](const std::string& words, const char* what, const QString& take) {
        proposal_->setText(QStringLiteral("%1 <a href=\"%2\">%3</a>")
                               .arg(QString::fromStdString(words).toHtmlEscaped(), QLatin1String(what), take));
    };
    for (const statements::LDLKindOption& option : statements::kLDLKindOptions) {
        if (option.kind == role.kind) {
            propose(role.why, kRole, tr("Take \"%1\"").arg(QLatin1String(option.caption)));
        }
    }
    if (!former.empty()) {
        propose(former, kFormer, tr("Take"));
    } else if (!compared.empty()) {
        propose(compared, kType, tr("Take Its Type"));
    }
    proposal_->setVisible(role.kind != statements::VarUndefined || !former.empty() || !compared.empty());
}

/// The longest meaning has room beside the longest name, so that roles stay where they are from variable to variable.
void VariablePanel::keepMeaningRoom() {
    const statements::LDLGuide guide(logic_);
    const QFontMetrics names(lblVariable_->font()), letters(meaning_->font());
    int longest = 0, most = 0;
    for (const statements::LDLVariable& variable : logic_.Variables) {
        longest = std::max(longest, names.horizontalAdvance(QString::fromStdString(variable.VariableName)));
    }
    const int width = lblVariable_->width() + meaning_->width() - longest;
    for (const statements::LDLVariable& variable : logic_.Variables) {
        const QString meaning = QString::fromStdString(guide.meaningOf(variable));
        const QRect room(0, 0, width, QWIDGETSIZE_MAX);
        most = std::max(most, meaning.isEmpty() ? 0 : letters.boundingRect(room, Qt::TextWordWrap, meaning).height());
    }
    lblVariable_->setMinimumWidth(longest);
    meaning_->setMinimumHeight(most);
}

bool VariablePanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        keepMeaningRoom();
    }
    return QWidget::eventFilter(watched, event);
}

QGroupBox* VariablePanel::newArity() {
    auto* frame = new QGroupBox(QLatin1String(statements::kFrameArityCaption), this);
    frame->setObjectName(QStringLiteral("frameArrity"));
    frame->setFixedWidth(kArityWidth);
    UpDownArity_ = new NumberField(frame);
    UpDownArity_->setObjectName(QStringLiteral("UpDownArity"));
    UpDownArity_->setRange(0, INT16_MAX);
    UpDownArity_->setKeyboardTracking(false);  // "1" is not meant on the way to "12"
    UpDownArity_->findChild<QLineEdit*>()->setObjectName(QStringLiteral("txtArity"));
    listArrity_ = new QListWidget(frame);
    listArrity_->setObjectName(QStringLiteral("listArrity"));
    listArrity_->setUniformItemSizes(true);
    listArrity_->setIconSize({kIcon, kIcon});
    auto* rows = new QVBoxLayout(frame);
    rows->setContentsMargins(Spacing::margin, Spacing::gap, Spacing::margin, Spacing::gap);
    rows->setSpacing(Spacing::gap);
    rows->addWidget(UpDownArity_);
    rows->addWidget(listArrity_, 1);
    take_ = new QPushButton(tr("Take"), frame);
    take_->setObjectName(QStringLiteral("butTakeBunch"));
    take_->setToolTip(tr("Makes many elements at once, in order"));
    take_->setAutoDefault(false);
    take_->setMenu(new QMenu(take_));
    connect(take_->menu(), &QMenu::aboutToShow, this, &VariablePanel::fillBunches);
    rows->addWidget(take_);

    connect(UpDownArity_, &QSpinBox::valueChanged, this, [this](int wanted) {
        for (int missing = wanted - logic_.UpDownArity; missing > 0; --missing) {
            logic_.UpDownArity_Up();
        }
        for (int surplus = logic_.UpDownArity - wanted; surplus > 0; --surplus) {
            logic_.UpDownArity_Down();
        }
        changed_();
    });
    connect(listArrity_, &QListWidget::currentRowChanged, this, [this](int row) {
        logic_.selectArrity(row);
        changed_();
    });
    return frame;
}

void VariablePanel::fillBunches() {
    take_->menu()->clear();
    const std::vector<std::string> names = logic_.bunches();
    for (int at = 0; at < static_cast<int>(names.size()); ++at) {
        addBunch(text(names[static_cast<std::size_t>(at)]), at);
    }
}

void VariablePanel::addBunch(const QString& name, int at) {
    const bool inputs = logic_.kind != statements::VarOutputArray;
    const QString whole = inputs ? tr("All Inputs Of %1").arg(name) : tr("All Outputs By %1").arg(name);
    take_->menu()->addAction(whole, this, [this, at] {
        logic_.takeWholeBunch(at);
        changed_();
    });
    take_->menu()->addAction(tr("Choose From %1...").arg(name), this, [this, name, at] {
        BunchChoice choice(name, logic_.bunch(at), window());
        choice.exec();
        if (const std::vector<int> places = choice.chosen(); !places.empty()) {
            logic_.takeBunch(at, places);
            changed_();
        }
    });
}

void VariablePanel::showArity() {
    take_->setEnabled(!logic_.bunches().empty());
    frameArrity_->setVisible(logic_.Visible.frameArrity);
    const QSignalBlocker quietNumber(UpDownArity_);
    UpDownArity_->setValue(logic_.UpDownArity);
    const QSignalBlocker quietList(listArrity_);
    const int count = static_cast<int>(logic_.listArrity.items.size());
    while (listArrity_->count() > count) {
        delete listArrity_->takeItem(listArrity_->count() - 1);
    }
    while (listArrity_->count() < count) {
        new QListWidgetItem(listArrity_);
    }
    const QIcon complete = icon(QStringLiteral("complete"));
    const QIcon missing = icon(QStringLiteral("missing"));
    for (int row = 0; row < count; ++row) {
        QListWidgetItem& item = *listArrity_->item(row);
        const statements::LDLVariable* element = logic_.CurrentVariable->SubVariables->Item(row + 1);
        const bool whole = element && logic_.isElementComplete(*element);
        item.setText(QString::fromStdString(logic_.listArrity.items[static_cast<std::size_t>(row)]));
        item.setIcon(whole ? complete : missing);
        item.setToolTip(whole ? tr("Complete") : tr("Something is missing"));
    }
    listArrity_->setCurrentRow(logic_.listArrity.ListIndex);
}

void VariablePanel::showState() {
    frameVar_->setVisible(logic_.Visible.frameVar);
    lblVariable_->setText(QString::fromStdString(logic_.lblVariable));
    scalars_->setVisible(logic_.Visible.scalarOptions);
    arrays_->setVisible(logic_.Visible.arrayOptions);
    kinds_->show(logic_.kind);
    showWords();
    showArity();
    value_->showState();
}

void VariablePanel::focusKind() {
    kinds_->focus();
}

}  // namespace orvent::qt
