// Keyword colouring in a real text box: keys, undo, caret, signals and speed.

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextEdit>

#include "qt/statements/keyword_colouring.h"
#include "qt/statements/text_box.h"
#include "window_test.h"

namespace orvent::qt {

namespace {

/// One letter for the look of each character: "k" keyword, "p" placeholder, "." plain, "?" anything else.
QString looks(const QTextEdit& box) {
    QString result;
    for (int at = 0; at < box.document()->characterCount() - 1; ++at) {
        QTextCursor cursor(box.document());
        cursor.setPosition(at + 1);
        const QTextCharFormat format = cursor.charFormat();
        const bool bold = format.fontWeight() == QFont::Bold;
        const bool coloured = format.hasProperty(QTextFormat::ForegroundBrush);
        result += QLatin1Char(!bold && !coloured                                        ? '.'
                              : bold && format.foreground().color() == QColor(Qt::blue) ? 'k'
                              : bold && format.foreground().color() == QColor(Qt::red)  ? 'p'
                                                                                        : '?');
    }
    return result;
}

}  // namespace

class ColouringTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void wordsAreColouredAsTheyEnd_data() {
        QTest::addColumn<bool>("upper");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("look");
        const auto row = [](const char* typed, const char* text, const char* look, bool upper = true) {
            QTest::newRow(typed) << upper << QString::fromUtf8(typed) << QString::fromUtf8(text)
                                 << QString::fromUtf8(look);
        };
        row("select a", "select a", "kkkkkk..", false);
        row("select x ", "SELECT x ", "kkkkkk...");
        row("from, a ", "from, a ", "........");
        row("[inputs1] = [ ", "[INPUTS1] = [ ", "ppppppppp.k.p.");
        row("größe in ", "größe IN ", "......kk.");
    }

    void wordsAreColouredAsTheyEnd() {
        QFETCH(bool, upper);
        QFETCH(QString, typed);
        QTextEdit box;
        KeywordColouring colouring(box, upper ? statements::Letters::upper : statements::Letters::kept);
        for (const QChar letter : typed) {
            letter.unicode() < 128 ? QTest::keyClick(&box, letter.toLatin1()) : box.insertPlainText(letter);
        }
        QTEST(box.toPlainText(), "text");
        QTEST(looks(box), "look");
    }

    void oneUndoTakesOneColouringBack() {
        QTextEdit box;
        KeywordColouring colouring(box);
        QTest::keyClicks(&box, QStringLiteral("select"));
        QSignalSpy changes(&box, &QTextEdit::textChanged);
        QTest::keyClick(&box, Qt::Key_Left);
        QCOMPARE(box.toPlainText(), QStringLiteral("SELECT"));
        QCOMPARE(box.textCursor().position(), 5);
        QCOMPARE(changes.count(), 1);
        QTest::keyClick(&box, Qt::Key_Left);  // nothing changes any more, so nothing is to be undone
        QCOMPARE(changes.count(), 1);
        box.undo();
        QCOMPARE(box.toPlainText(), QStringLiteral("select"));
        QCOMPARE(looks(box), QStringLiteral("......"));
        box.undo();
        QCOMPARE(box.toPlainText(), QString());
    }

    void aSelectionStaysAndIsNotColoured() {
        QTextEdit box(QStringLiteral("from x"));
        KeywordColouring colouring(box);
        QTextCursor selection(box.document());
        selection.setPosition(1);
        selection.setPosition(3, QTextCursor::KeepAnchor);
        box.setTextCursor(selection);
        colouring.colourAll();
        QCOMPARE(box.textCursor().selectedText(), QStringLiteral("RO"));
        QCOMPARE(looks(box), QStringLiteral("kkkk.."));
    }

    void deleteLooksAtWhatStandsBehindTheCaret() {
        QTextEdit box;
        KeywordColouring colouring(box);
        box.setPlainText(QStringLiteral("xor y"));
        QTest::keyClick(&box, Qt::Key_Delete);
        QCOMPARE(box.toPlainText(), QStringLiteral("OR y"));
        QTest::keyClick(&box, Qt::Key_End, Qt::ShiftModifier);
        QTest::keyClick(&box, Qt::Key_Backspace);
        QCOMPARE(box.toPlainText(), QString());
    }

    void loadingSendsNoSignalAndIsOneUndoStep() {
        QTextEdit box;
        KeywordColouring colouring(box);
        QString line = QStringLiteral("select a from b where x = [SOURCES]\n");
        box.setPlainText(line.repeated(3000));
        QSignalSpy changes(&box, &QTextEdit::textChanged);
        QElapsedTimer clock;
        clock.start();
        colouring.colourAll();
        qInfo("colouring 108,000 characters: %lld ms", clock.elapsed());
        QCOMPARE(changes.count(), 0);
        QCOMPARE(box.document()->lastBlock().previous().text(), QStringLiteral("SELECT a FROM b WHERE x = [SOURCES]"));
        QTest::keyClick(&box, Qt::Key_End, Qt::ControlModifier);
        clock.start();
        QTest::keyClicks(&box, QStringLiteral("and not in "));
        qInfo("11 keys at its end: %lld ms", clock.elapsed());
        QVERIFY(clock.elapsed() < 1000);
        QVERIFY(looks(box).endsWith(QLatin1String("kkk.kkk.kk.")));
        for (int step = 0; step < 7; ++step) {  // three words, their colourings and the last blank
            box.undo();
        }
        QVERIFY(plainText(box) != line.repeated(3000).toStdString());
        box.undo();
        QCOMPARE(plainText(box), line.repeated(3000).toStdString());
        QVERIFY(!box.document()->isUndoAvailable());
    }

    void plainTextKeepsEveryCharacter() {
        QTextEdit box;
        const std::string text = "a\u00A0b\n\u2026\U0001F600\n";
        showPlainText(box, text);
        QCOMPARE(plainText(box), text);
        QTextCursor end(box.document());
        end.movePosition(QTextCursor::End);
        box.setTextCursor(end);
        showPlainText(box, "a\u00A0b\r\n\u2026\U0001F600\r\n");
        QCOMPARE(box.textCursor().position(), end.position());  // it is the same text, and was left alone
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::ColouringTest)
#include "colouring_test.moc"
