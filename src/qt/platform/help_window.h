#pragma once

#include <QWidget>

class QListWidget;
class QTextBrowser;

namespace orvent::qt {

class SearchField;

/// The pages of the help with their contents and a search, for desktops without a viewer of the help file.
class HelpWindow : public QWidget {
    Q_OBJECT

  public:
    HelpWindow();

  private:
    void find(const QString& words);
    void showPage();

    SearchField* search_;
    QListWidget* contents_;  ///< the titles of the pages in which the words are found
    QTextBrowser* page_;
};

/// Opens the window, or brings the open one forward.
void showHelpWindow();

}  // namespace orvent::qt
