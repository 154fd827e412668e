#pragma once

#include <QtTest>
#include <QtWidgets>
#include <string>

namespace orvent::qt {

/// What the scripted ports do with a failure here.
inline void failQt(const std::string& words) {
    QTest::qFail(words.c_str(), __FILE__, __LINE__);
}

/// Base of the window tests: any warning of the toolkit fails the running test, but for a remark of the platform
/// without a display about what such a platform lacks.
class WindowTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support).*"))); }
};

}  // namespace orvent::qt
