#pragma once

#include <QGroupBox>
#include <functional>
#include <vector>

#include "statements/ldl_form.h"

class QComboBox;
class QLineEdit;

namespace orvent::qt {

class OptionGroup;

/// The panel `frameValue`: where the value of a variable, or of an array's element, comes from.
class ValuePanel : public QGroupBox {
    Q_OBJECT

  public:
    /// `changed` is called after each event that was handed to the logic.
    ValuePanel(statements::LDLForm& logic, std::function<void()> changed, QWidget* parent);

    void showState();

  private:
    /// A control below its caption.
    struct Cell {
        QWidget* whole;
        bool statements::LDLVisible::*visible;
    };
    struct Choice {
        QComboBox* box;
        statements::LDLList statements::LDLForm::*list;
    };
    struct Field {
        QLineEdit* box;
        std::string statements::LDLForm::*text;
    };

    struct Row {
        QWidget* whole;
        std::vector<QWidget*> cells;
    };

    QWidget* newRow(std::initializer_list<QWidget*> cells);
    QWidget* newCell(const char* captionName, const char* caption, QWidget* control,
                     bool statements::LDLVisible::*visible);
    QWidget* newChoiceCell(std::size_t row);
    QLineEdit* newFunctionField();
    QWidget* newFieldCell(QLineEdit* box, QWidget* control, const char* captionName, const char* caption,
                          std::string statements::LDLForm::*text, bool statements::LDLVisible::*visible,
                          statements::LDLRegulatorType implied);

    statements::LDLForm& logic_;
    std::function<void()> changed_;
    OptionGroup* options_;
    std::vector<Cell> cells_;
    std::vector<Row> rows_;
    std::vector<Choice> choices_;
    std::vector<Field> fields_;
};

}  // namespace orvent::qt
