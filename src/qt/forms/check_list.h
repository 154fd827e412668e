#pragma once

#include <QTreeWidget>
#include <functional>
#include <vector>

namespace orvent::qt {

/// Lines that are taken or left, each by a check mark.
class CheckList : public QTreeWidget {
    Q_OBJECT

  public:
    struct Row {
        QStringList texts;
        bool checked = true;
        QString why = {};  ///< why it cannot be taken; empty as a rule
    };

    CheckList(const QString& name, const QStringList& heads, QWidget* parent);

    /// Set by the window: a check mark was set or taken away by hand.
    std::function<void(std::size_t row, bool on)> toggled;

    void showRows(const std::vector<Row>& rows);
};

}  // namespace orvent::qt
