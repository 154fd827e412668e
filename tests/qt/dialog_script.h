#pragma once

#include <QAccessible>
#include <QSet>
#include <deque>
#include <functional>

#include "window_test.h"

namespace orvent::qt {

/// Plays the user of modal windows: acts on each of them by its object name, in the order in which they open. A window
/// that opens beside the script is a failure and is dismissed; so is a step that is left over.
class DialogScript {
  public:
    using Act = std::function<void(QDialog&)>;

    DialogScript() { poll(); }
    ~DialogScript() { verify(); }

    void at(const QString& name, Act act) { steps_.push_back({name, std::move(act)}); }

    /// Goes on when all steps were played and no dialog is left.
    void settle() {
        QTRY_VERIFY(steps_.empty() && !handled_ && !front());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void verify() {
        for (const Step& step : steps_) {
            failQt(step.name.toStdString() + " never opened");
        }
        steps_.clear();
    }

    /// A reader of the screen can name every control that the keyboard reaches, and each button has a letter, and
    /// no two that can be pressed share one.
    static void isNamed(const QDialog& dialog) {
        QSet<QKeySequence> letters;
        for (QWidget* control : dialog.findChildren<QWidget*>()) {
            const bool own = !control->objectName().startsWith(QLatin1String("qt_"));  // no part of a toolkit's control
            if (!own || !control->isVisible() || !(control->focusPolicy() & Qt::TabFocus)) {
                continue;
            }
            const std::string place = dialog.objectName().toStdString() + "/" + control->objectName().toStdString() +
                                      " " + control->metaObject()->className();
            QAccessibleInterface* read = QAccessible::queryAccessibleInterface(control);
            if (!read || read->text(QAccessible::Name).isEmpty()) {
                failQt(place + " has no name");
            }
            if (const auto* button = qobject_cast<QPushButton*>(control);
                button && !button->text().isEmpty() && !captioned(dialog, *button)) {
                const QKeySequence letter = QKeySequence::mnemonic(button->text());
                if (letter.isEmpty() || (control->isEnabled() && letters.contains(letter))) {
                    failQt(place + " has no letter of its own: " + button->text().toStdString());
                }
                if (control->isEnabled()) {
                    letters.insert(letter);
                }
            }
        }
    }

  private:
    struct Step {
        QString name;
        Act act;
    };
    static constexpr int kPause = 5;       // milliseconds
    static constexpr int kPatience = 400;  // pauses before an unexpected window counts as a failure

    void poll() {
        // A new shot each time: a timer does not fire again within its own handler, where nested windows open.
        QTimer::singleShot(kPause, &context_, [this] {
            poll();
            look();
        });
    }

    /// Every window can be made small enough for a screen of 1024 x 700, and for one of 1600 x 1000 at 200 %. None has
    /// to be scrolled sideways on a screen of 800 pixels.
    static void fits(const QDialog& dialog) {
        constexpr QSize screen(800, 500);
        constexpr QSize around(20, 40);  // its border and title
        const QSize least = dialog.minimumSizeHint().expandedTo(dialog.minimumSize()) + around;
        if (least.width() > screen.width() || least.height() > screen.height()) {
            failQt(dialog.objectName().toStdString() + " needs " + std::to_string(least.width()) + " x " +
                   std::to_string(least.height()) + " pixels");
        }
        const auto* body = dialog.findChild<QScrollArea*>(QStringLiteral("body"));
        if (body && body->horizontalScrollBar()->maximum() > 0) {
            failQt(dialog.objectName().toStdString() + " scrolls sideways by " +
                   std::to_string(body->horizontalScrollBar()->maximum()));
        }
    }

    /// A button that shows a value, such as a colour, has its caption beside it.
    static bool captioned(const QDialog& dialog, const QPushButton& button) {
        const auto labels = dialog.findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(),
                           [&](const QLabel* label) { return label->buddy() == &button; });
    }

    /// The modal window, or a dialog in front beside which the program goes on.
    static QDialog* front() {
        QWidget* modal = QApplication::activeModalWidget();
        return qobject_cast<QDialog*>(modal ? modal : QApplication::activeWindow());
    }

    void look() {
        QDialog* const dialog = front();
        if (!dialog || dialog == handled_) {
            waited_ = 0;
            return;
        }
        if (!steps_.empty() && steps_.front().name == dialog->objectName() && dialog->isActiveWindow()) {
            const Act act = std::move(steps_.front().act);
            steps_.pop_front();
            QDialog* const outer = std::exchange(handled_, dialog);
            fits(*dialog);
            if (!dialog->objectName().isEmpty() && !dialog->objectName().startsWith(QLatin1String("Print"))) {
                isNamed(*dialog);
            }
            act(*dialog);
            handled_ = outer;
        } else if (++waited_ > kPatience) {
            failQt("unexpected window " + dialog->objectName().toStdString());
            waited_ = 0;
            dialog->reject();
            if (dialog->isVisible()) {
                dialog->done(QDialog::Accepted);  // its question has nobody to answer it; an accepted one asks none
            }
        }
    }

    QObject context_;
    std::deque<Step> steps_;
    QDialog* handled_ = nullptr;
    int waited_ = 0;
};

}  // namespace orvent::qt
