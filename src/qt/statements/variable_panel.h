#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "statements/ldl_form.h"

class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;
class QSpinBox;

namespace orvent::qt {

class OptionGroup;
class ValuePanel;

/// The wizard's panels for one variable: its kinds in `frameVar`, the elements of an array in `frameArrity` and the
/// value.
class VariablePanel : public QWidget {
    Q_OBJECT

  public:
    /// `changed` is called after each event that was handed to the logic.
    VariablePanel(statements::LDLForm& logic, std::function<void()> changed, QWidget* parent);

    void showState();
    /// Puts the focus on the kinds, where a new variable begins.
    void focusKind();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void keepMeaningRoom();
    void addWords(QGroupBox& frame);
    void showWords();
    QGroupBox* newKinds();
    QGroupBox* newArity();
    void showArity();
    void fillBunches();
    void addBunch(const QString& name, int at);

    statements::LDLForm& logic_;
    std::function<void()> changed_;
    OptionGroup* kinds_ = nullptr;
    QLabel* lblVariable_ = nullptr;
    QLabel* meaning_ = nullptr;
    QLabel* proposal_ = nullptr;
    QWidget* scalars_ = nullptr;
    QWidget* arrays_ = nullptr;
    QGroupBox* frameVar_ = nullptr;
    QGroupBox* frameArrity_ = nullptr;
    QSpinBox* UpDownArity_ = nullptr;
    QListWidget* listArrity_ = nullptr;
    QPushButton* take_ = nullptr;  ///< many elements at once
    ValuePanel* value_ = nullptr;
};

}  // namespace orvent::qt
