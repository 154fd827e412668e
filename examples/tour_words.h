#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <QWidget>

namespace orvent::tour {

/// All that windows showed: captions, choices, rows and what was typed.
class Words {
  public:
    void read(const QWidget& window);
    void clear() { seen_.clear(); }
    /// Those of the names that no window showed.
    QStringList unseen(const QStringList& names) const;

  private:
    void add(const QString& text);

    QSet<QString> seen_;
};

/// What the numbered steps of a page name, by marks such as "**" or "<b>" and "</b>"; "A > B" are two names. The page
/// is a file of this project.
QStringList namesInSteps(const QString& file);

}  // namespace orvent::tour
