// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/Theme.h"

#include "host/ui/ThemeFlags.h"

#include <QHash>

int g_ThemeColor = 0;
int g_pixelSize = 12;

namespace {

struct Shades
{
    QRgb light;
    QRgb dark;
};

// Texts keep a contrast of at least 4.5 to 1 on every ground that they stand on, edges of controls
// and the focus at least 3 to 1.
QHash<QString, Shades> const colours{
    {"window", {0xfff4f5f7, 0xff22262c}},        {"base", {0xffffffff, 0xff1a1d22}},
    {"surface", {0xfffbfbfc, 0xff2a2f36}},       {"header", {0xffe9ecf0, 0xff333941}},
    {"text", {0xff1d232c, 0xffe5e8ec}},          {"mutedText", {0xff555e6b, 0xffb0b7c1}},
    {"disabledText", {0xff979fab, 0xff717985}},  {"border", {0xffd3d8df, 0xff414852}},
    {"controlBorder", {0xff838b97, 0xff7d8692}}, {"hover", {0xffe6ebf2, 0xff3a414b}},
    {"pressed", {0xffd5dce6, 0xff464e59}},       {"accent", {0xff1f66c4, 0xff2e73cf}},
    {"accentHover", {0xff1a5aaf, 0xff2a6bc2}},   {"accentPressed", {0xff154b93, 0xff245eab}},
    {"accentText", {0xffffffff, 0xffffffff}},    {"focus", {0xff1f66c4, 0xff74abf2}},
    {"link", {0xff1b5cb2, 0xff86b7f5}},          {"selection", {0xffd3e3f8, 0xff2f4a6d}},
    {"error", {0xffb3261e, 0xfff2a19b}},         {"warning", {0xff8a5300, 0xfff0c06a}},
    {"success", {0xff1e6b34, 0xff86d19c}},       {"toolTip", {0xff2a2f36, 0xffe9ecf0}},
    {"toolTipText", {0xfff4f5f7, 0xff1d232c}},   {"viewTop", {0xfff7f9fb, 0xff3a424d}},
    {"caution", {0xffc27400, 0xfff0c06a}},       {"viewBottom", {0xffd4dbe4, 0xff1e2228}},
};

QHash<QString, double> const lengths{
    {"dialogWidegtMargin", 0.67}, {"layoutSpacing", 0.5},
    {"controlHeight", 2.17},      {"iconSize", 1.5},
    {"cornerRadius", 0.34},       {"titleHeight", 2.67},
    {"groupHeight", 2.34},        {"dialogWidth", 29},
};

}  // namespace

QVariant binderTheme(QString const& key)
{
    if (auto const shades = colours.constFind(key); shades != colours.constEnd())
        return QColor::fromRgba(g_ThemeColor & darkTheme ? shades->dark : shades->light);
    if (auto const factor = lengths.constFind(key); factor != lengths.constEnd())
        return *factor;
    return {};
}
