#pragma once

#include "qt/dialogs/dialog_base.h"
#include "statements/ldl_form.h"

class QGroupBox;
class QLabel;
class QPushButton;

namespace orvent::qt {

class GuidedButton;
class GuideStrip;
class TemplateBox;
class VariableList;
class VariablePanel;

/// The window of `LDLForm`, the wizard that turns a template into an activity. It runs until the logic is closed.
class LDLFormWindow : public DialogBase {
    Q_OBJECT

  public:
    explicit LDLFormWindow(statements::LDLForm& logic, QWidget* parent = nullptr);

    void reject() override;

  private:
    using Event = void (statements::LDLForm::*)();

    QWidget* newTemplateSide();
    QWidget* newVariableSide();
    GuidedButton* newButton(statements::LDLButton which, const char* name, const char* caption, Event handler);
    QString reason(statements::LDLButton which) const;
    void act(Event handler);
    void showState();
    void showButtons();

    struct Button {
        statements::LDLButton which;
        GuidedButton* shown;
    };

    statements::LDLForm& logic_;
    std::vector<Button> guided_;
    GuideStrip* guide_ = nullptr;
    TemplateBox* txtTemplate_ = nullptr;
    QGroupBox* frameVariables_ = nullptr;
    VariableList* variables_ = nullptr;
    QWidget* variableSide_ = nullptr;
    VariablePanel* panel_ = nullptr;
    QWidget* steps_ = nullptr;
    QLabel* place_ = nullptr;
    QPushButton* cmdOK_ = nullptr;
    QLabel* whyNotOK_ = nullptr;
};

}  // namespace orvent::qt
