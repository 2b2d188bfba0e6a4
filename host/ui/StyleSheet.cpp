// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/StyleSheet.h"

#include "platform/ui/Theme.h"

#include <QFile>
#include <QRegularExpression>

namespace {

QString replacement(QString const& name)
{
    bool isNumber = false;
    double const factor = name.toDouble(&isNumber);
    if (isNumber)
        return QString::number(qRound(factor * g_pixelSize)) + "px";
    QVariant const value = binderTheme(name);
    Q_ASSERT_X(value.isValid(), "style sheet", qPrintable(name));
    return value.type() == QVariant::Double
               ? QString::number(qRound(value.toDouble() * g_pixelSize)) + "px"
               : value.value<QColor>().name();
}

}  // namespace

QString themeStyleSheet()
{
    QFile file(":/theme/orbe.qss");
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QString const source = QString::fromUtf8(file.readAll());
    static QRegularExpression const mark("@([A-Za-z0-9.]+)@");
    QString result;
    int copied = 0;
    for (auto match = mark.globalMatch(source); match.hasNext();) {
        auto const found = match.next();
        result += source.mid(copied, found.capturedStart() - copied);
        result += replacement(found.captured(1));
        copied = found.capturedEnd();
    }
    return result + source.mid(copied);
}
