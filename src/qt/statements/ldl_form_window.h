#pragma once

#include "qt/forms/form_window.h"
#include "statements/ldl_form.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace orvent::qt {

class GuidedButton;
class GuideStrip;
class TemplateBox;
class TextPair;
class VariableList;
class VariablePanel;

/// The window of `LDLForm`, the wizard that turns a template into an activity. It runs until the logic is closed.
class LDLFormWindow : public FormWindow {
    Q_OBJECT

  public:
    explicit LDLFormWindow(statements::LDLForm& logic, QWidget* parent = nullptr);

    void done(int result) override;

  protected:
    bool mayDismiss() override { return !logic_.isOpen() || logic_.mayDismiss(); }
    void resizeEvent(QResizeEvent* event) override;

  private:
    using Event = void (statements::LDLForm::*)();

    void addTop();
    QWidget* newTemplateSide();
    QWidget* newTexts(QWidget* side);
    void addChoices(QGroupBox& frame);
    QWidget* newVariableSide();
    GuidedButton* newButton(statements::LDLButton which, const char* name, const char* caption, char letter,
                            Event handler);
    QString reason(statements::LDLButton which) const;
    void act(Event handler);
    void showState();
    void showType();
    void showGuide();
    void showButtons();
    void goTo(const QString& variable);

    struct Button {
        statements::LDLButton which;
        GuidedButton* shown;
    };

    statements::LDLForm& logic_;
    std::vector<Button> guided_;
    GuideStrip* guide_ = nullptr;
    QLabel* type_ = nullptr;
    TextPair* texts_ = nullptr;
    TemplateBox* txtTemplate_ = nullptr;
    TemplateBox* original_ = nullptr;
    QGroupBox* frameOriginal_ = nullptr;
    QLabel* whichText_ = nullptr;
    QCheckBox* wholeNumbers_ = nullptr;
    QPushButton* editTemplate_ = nullptr;
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
