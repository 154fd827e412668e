#include "tour_player.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPixmap>
#include <QProgressDialog>
#include <QTimer>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace orvent::tour {

namespace fs = std::filesystem;

namespace {

constexpr int kPause = 20;         // milliseconds
constexpr int kPatience = 10'000;  // for a window that is awaited

/// The modal window, or a dialog in front beside which the program goes on.
QWidget* front() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : qobject_cast<QDialog*>(QApplication::activeWindow());
}

}  // namespace

Player::Player(fs::path folder) : folder_(std::move(folder)) {}

void Player::during(const char* what, const std::function<void()>& action, std::deque<Answer> answers) {
    std::printf("tour: %s\n", what);
    std::fflush(stdout);
    answers_ = std::move(answers);
    answered_.clear();
    playing_ = true;
    lookSoon();
    action();
    for (QElapsedTimer waited; !answers_.empty() || front();) {  // a dialog beside which the program goes on
        if (!waited.isValid()) {
            waited.start();
        }
        QApplication::processEvents(QEventLoop::AllEvents, kPause);
        if (waited.elapsed() > kPatience) {
            break;
        }
    }
    playing_ = false;
    QApplication::processEvents();
    expect(answers_.empty(), std::string(what) + ": a window that should have opened did not");
    answers_.clear();
}

// A timer of its own for each look, since an answer may open a further window and a timer does not fire inside itself.
void Player::lookSoon() {
    QTimer::singleShot(kPause, QApplication::instance(), [this] {
        if (playing_) {
            lookSoon();
            lookForWindow();
        }
    });
}

void Player::lookForWindow() {
    QWidget* window = front();
    if (!window || answered_.contains(window) || qobject_cast<QProgressDialog*>(window)) {
        return;
    }
    answered_.append(window);
    QApplication::processEvents();
    if (answers_.empty()) {
        auto* box = qobject_cast<QMessageBox*>(window);
        expect(false, "unexpected window: " + window->windowTitle().toStdString() +
                          (box ? ": " + box->text().toStdString() : std::string()));
        window->close();
    } else {
        const Answer answer = std::move(answers_.front());
        answers_.pop_front();
        words_.read(*window);
        answer(*window);
    }
}

void Player::picture(QWidget& window, const std::string& name) {
    QApplication::processEvents();
    words_.read(window);
    const QString number = QStringLiteral("%1-").arg(++pictures_, 2, 10, QLatin1Char('0'));
    const fs::path path = folder_ / (number.toStdString() + name + ".png");
    expect(window.grab().save(QString::fromStdString(path.string())), path.string() + " could not be written");
}

void Player::press(QWidget& window, const char* button) {
    for (QAbstractButton* each : window.findChildren<QAbstractButton*>()) {
        if (each->objectName() == QLatin1String(button) ||
            each->text().remove(QLatin1Char('&')) == QLatin1String(button)) {
            each->click();
            return;
        }
    }
    throw std::runtime_error(std::string("the tour finds no button ") + button);
}

void Player::type(QWidget& field, const QString& text) {
    field.setFocus();
    const auto send = [&field](int key, Qt::KeyboardModifiers modifiers, const QString& letters) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers, letters);
            QApplication::sendEvent(&field, &event);
        }
    };
    send(Qt::Key_A, Qt::ControlModifier, QString());
    for (const QChar letter : text) {
        send(Qt::Key_unknown, Qt::NoModifier, QString(letter));
    }
}

QWidget& Player::child(QWidget& window, const char* name) {
    auto* found = window.findChild<QWidget*>(QLatin1String(name));
    if (!found) {
        throw std::runtime_error(std::string("the tour finds no control ") + name);
    }
    return *found;
}

void Player::expect(bool condition, const std::string& words) {
    if (!condition) {
        ++failures_;
        std::fprintf(stderr, "tour: FAILED: %s\n", words.c_str());
    }
}

}  // namespace orvent::tour
