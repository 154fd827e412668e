#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>
#include <deque>
#include <filesystem>
#include <functional>
#include <string>

#include "tour_words.h"

namespace orvent::tour {

/// Plays a user at the real windows: answers the modal windows that come, in the order that the script tells, and
/// takes numbered pictures. Whatever goes another way is a failure.
class Player {
  public:
    explicit Player(std::filesystem::path folder);

    using Answer = std::function<void(QWidget&)>;

    /// Runs `action`, and gives each modal window that opens meanwhile to the next of `answers`.
    void during(const char* what, const std::function<void()>& action, std::deque<Answer> answers = {});

    /// Saves a picture of the window as "<number>-<name>.png".
    void picture(QWidget& window, const std::string& name);

    /// Presses the button of that object name, or the standard button with that text.
    static void press(QWidget& window, const char* button);
    /// Replaces the text of a field, key by key.
    static void type(QWidget& field, const QString& text);
    /// The one child of that object name; a missing one ends the tour.
    static QWidget& child(QWidget& window, const char* name);

    /// What the windows showed that it played or took pictures of.
    Words& words() { return words_; }

    void expect(bool condition, const std::string& words);
    int failures() const { return failures_; }

  private:
    void lookSoon();
    void lookForWindow();

    std::filesystem::path folder_;
    std::deque<Answer> answers_;
    Words words_;
    bool playing_ = false;
    QList<QPointer<QWidget>> answered_;  ///< an entry turns null when its window goes
    int pictures_ = 0;
    int failures_ = 0;
};

}  // namespace orvent::tour
