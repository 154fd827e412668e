#pragma once

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

namespace orvent::qt {

/// A form of labels and fields, spaced as in all dialogs.
QFormLayout* newForm();

/// The caption of a row of a form, on the line of the field beside it.
QLabel* newCaption(const QString& caption, QWidget* parent);

/// A row of a form. The caption's key leads to the field.
QLabel* addField(QFormLayout& form, const QString& caption, QWidget* field);

/// The caption with that letter as its key; a caption without the letter stays as it is.
QString withLetter(QString caption, QLatin1Char letter);

/// A text field of that object name.
QLineEdit* newField(const QString& name, QWidget* parent);

/// A choice of one of several.
QComboBox* newChoice(const QString& name, QWidget* parent);

/// Tells in the middle of an empty list or table why it is empty; called behind its own painting.
void paintHint(QAbstractScrollArea& view, const QString& words);

/// Selects the whole text so that a long one shows its beginning.
void selectFromStart(QLineEdit& field);

/// A list that tells in its middle why it is empty.
class HintList : public QListWidget {
    Q_OBJECT

  public:
    HintList(QString hint, QWidget* parent);

    /// A new last row.
    QListWidgetItem* addRow(const QIcon& icon);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    QString hint_;
};

}  // namespace orvent::qt
