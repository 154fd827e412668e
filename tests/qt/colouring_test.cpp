// Keyword colouring in a real text box: keys, undo, caret and signals.

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
        const QColor ink = format.foreground().color();
        const bool coloured = format.hasProperty(QTextFormat::ForegroundBrush);
        const char mark = ink == QColor(Qt::blue) ? 'k' : ink == QColor(Qt::red) ? 'p' : '?';
        result += QLatin1Char(bold != coloured ? '?' : bold ? mark : '.');
    }
    return result;
}

}  // namespace

class ColouringTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void wordsAreColouredAsTheyEnd() {
        struct Row {
            const char *typed, *text, *look;
        };
        for (const Row& row : {Row{"select x ", "SELECT x ", "kkkkkk..."},
                               {"[inputs1] = [ ", "[INPUTS1] = [ ", "ppppppppp.k.p."},
                               {"größe in ", "größe IN ", "......kk."}}) {
            QTextEdit box;
            KeywordColouring colouring(box);
            for (const QChar letter : QString::fromUtf8(row.typed)) {
                letter.unicode() < 128 ? QTest::keyClick(&box, letter.toLatin1()) : box.insertPlainText(letter);
            }
            QCOMPARE(box.toPlainText(), QString::fromUtf8(row.text));
            QCOMPARE(looks(box), QLatin1String(row.look));
        }
        QTextEdit box;
        KeywordColouring colouring(box, statements::Letters::kept);
        QTest::keyClicks(&box, QStringLiteral("select a"));
        QCOMPARE(box.toPlainText(), QStringLiteral("select a"));
        QCOMPARE(looks(box), QStringLiteral("kkkkkk.."));
    }

    void inksFollowThePalette() {
        QTextEdit box;
        KeywordColouring colouring(box);
        showPlainText(box, "SELECT a");
        colouring.colourAll();
        const auto ink = [&box] {
            QTextCursor cursor(box.document());
            cursor.setPosition(1);
            return cursor.charFormat().foreground().color();
        };
        QCOMPARE(ink(), QColor(Qt::blue));
        QPalette dark = box.palette();
        dark.setColor(QPalette::Base, Qt::black);
        dark.setColor(QPalette::Text, Qt::white);
        box.setPalette(dark);
        QVERIFY2(ink().lightness() > 150, qPrintable(ink().name()));
        QVERIFY(!box.document()->isUndoAvailable());
    }

    void eachKeystrokeIsOneUndoStepWithItsColours() {
        QTextEdit box;
        KeywordColouring colouring(box);
        QStringList texts, shown;
        const auto stroke = [&](int key, const QString& text) {
            texts.prepend(box.toPlainText());
            shown.prepend(looks(box));
            QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text),
                up(QEvent::KeyRelease, key, Qt::NoModifier, text);
            QCoreApplication::sendEvent(&box, &down);
            QCoreApplication::sendEvent(&box, &up);
        };
        for (const QChar letter : QStringLiteral("a from b")) {
            stroke(letter.toUpper().unicode(), letter);  // keys of letters and the blank are these letters
        }
        QCOMPARE(box.toPlainText(), QStringLiteral("a FROM b"));
        stroke(Qt::Key_Backspace, QStringLiteral("\b"));
        stroke(Qt::Key_Backspace, QStringLiteral("\b"));  // colours FROM once more, which changes nothing
        box.moveCursor(QTextCursor::Start);
        QTest::keyClick(&box, Qt::Key_Right);  // changes nothing
        for (int at = 0; at < texts.size(); ++at) {
            box.undo();
            QCOMPARE(box.toPlainText(), texts[at]);
            QCOMPARE(looks(box), shown[at]);
        }
        QVERIFY(!box.document()->isUndoAvailable());
    }

    void theCaretStaysInSightWhileLinesAreTyped() {
        QTextEdit box;
        KeywordColouring colouring(box);
        box.resize(200, 120);
        box.show();
        for (int line = 0; line < 30; ++line) {
            QTest::keyClick(&box, Qt::Key_Return);
            QVERIFY2(box.viewport()->rect().contains(box.cursorRect().center()), qPrintable(QString::number(line)));
        }
    }

    void changedLettersAreToldOnce() {
        QTextEdit box;
        KeywordColouring colouring(box);
        QTest::keyClicks(&box, QStringLiteral("select"));
        QSignalSpy changes(&box, &QTextEdit::textChanged);
        QTest::keyClick(&box, Qt::Key_Left);
        QCOMPARE(box.toPlainText(), QStringLiteral("SELECT"));
        QCOMPARE(box.textCursor().position(), 5);
        QCOMPARE(changes.count(), 1);
        QTest::keyClick(&box, Qt::Key_Left);
        QCOMPARE(changes.count(), 1);
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

    void loadingSendsNoSignalAndLeavesNothingToUndo() {
        QTextEdit box;
        KeywordColouring colouring(box);
        box.setPlainText(QStringLiteral("select a from b\nwhere x = [SOURCES]\n"));
        QSignalSpy changes(&box, &QTextEdit::textChanged);
        colouring.colourAll();
        QCOMPARE(changes.count(), 0);
        QCOMPARE(box.toPlainText(), QStringLiteral("SELECT a FROM b\nWHERE x = [SOURCES]\n"));
        QVERIFY(!box.document()->isUndoAvailable());
    }

    void aVeryLongLineIsColouredWhereItIsSeen() {
        QTextEdit box;
        KeywordColouring colouring(box);
        box.resize(400, 300);
        constexpr int kWords = 2'500;
        box.setPlainText(QStringLiteral(" from x").repeated(kWords));
        colouring.colourAll();
        box.show();
        QVERIFY(box.toPlainText() == QStringLiteral(" FROM x").repeated(kWords));
        const auto colours = [&box] { return box.document()->firstBlock().layout()->formats(); };
        QTRY_VERIFY(colours().size() > 50);
        QVERIFY2(colours().size() < kWords / 5, "each costs its share of every keystroke");
        QCOMPARE(colours().constFirst().start, 1);
        QCOMPARE(colours().constFirst().format.foreground().color(), QColor(Qt::blue));

        // What is typed in front moves them, what becomes another word loses its colour.
        QTest::keyClicks(&box, QStringLiteral("or x"));
        QTest::keyClick(&box, Qt::Key_Space);
        QCOMPARE(colours().constFirst().length, 2);
        QCOMPARE(colours().at(1).start, 6);
        QVERIFY(box.toPlainText().startsWith(QStringLiteral("OR x  FROM x ")));

        box.moveCursor(QTextCursor::End);
        const int last = static_cast<int>(box.toPlainText().lastIndexOf(QStringLiteral("FROM")));
        QTRY_COMPARE(colours().constLast().start, last);
        QVERIFY(colours().size() < kWords / 5);
        box.setPlainText(QStringLiteral("short"));
        QVERIFY(colours().isEmpty());
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
