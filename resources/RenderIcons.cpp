// SPDX-License-Identifier: GPL-3.0-or-later

// Makes pictures out of the drawings: RenderIcons DRAWINGS OUT. Each folder of DRAWINGS is a kind
// of picture with its sizes and colours. OUT receives the pictures, icons.qrc which names them all,
// and the program's icon in the folders of an icon theme.

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QStringList>
#include <QSvgRenderer>

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

/// The colours of a drawing's lines, of what it stresses, and of what it warns about.
struct Palette
{
    char const* line;
    char const* accent;
    char const* warning;
};

/// The colours that stand in the drawings, and serve on a light ground.
constexpr Palette light{"#3b4652", "#1f7ae0", "#c77414"};
constexpr Palette dark{"#cfd7e1", "#5aaaff", "#f0a94e"};
/// For pictures whose path is the same in both themes: legible on light and dark ground.
constexpr Palette neutral{"#7a8794", "#3a92ec", "#cf8226"};
/// What is not chosen, in both themes.
constexpr Palette muted{"#76838f", "#8d99a5", "#76838f"};

struct Variant
{
    /// Stands behind the drawing's name.
    char const* suffix;
    Palette palette;
};

struct Kind
{
    char const* folder;
    std::vector<Variant> variants;
    /// Width and height in pixels; 0 for the drawing's own.
    int side;
    /// Whether a second picture serves screens with two pixels to one.
    bool hasDouble;
};

std::array const kinds = {
    Kind{"app", {{"", light}, {"_dark", dark}}, 48, true},
    Kind{"tools", {{"", neutral}}, 48, true},
    Kind{"tabs", {{"", neutral}, {"26", muted}, {"_dark", neutral}}, 48, true},
    Kind{"cursors", {{"", light}}, 32, true},
    Kind{"teeth", {{"", neutral}}, 0, true},
    Kind{"tips", {{"", light}, {"_dark", dark}}, 0, true},
    // These are scaled to a number of pixels by those who show them.
    Kind{"pictures", {{"", neutral}}, 0, false},
    Kind{"program", {{"", light}}, 256, false},
};

constexpr std::array themeSizes = {16, 22, 24, 32, 48, 64, 128, 256, 512};

[[noreturn]] void fail(QString const& what)
{
    throw std::runtime_error(what.toStdString());
}

QByteArray contentOf(QString const& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(path + ": " + file.errorString());
    return file.readAll();
}

QByteArray coloured(QByteArray drawing, Palette const& palette)
{
    // Two steps, so that a colour which has been put in is not taken for one to be replaced.
    drawing.replace(light.line, "@line")
        .replace(light.accent, "@accent")
        .replace(light.warning, "@warning");
    return drawing.replace("@line", palette.line)
        .replace("@accent", palette.accent)
        .replace("@warning", palette.warning);
}

QImage rendered(QSvgRenderer& drawing, QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    return image;
}

void save(QImage const& image, QString const& path)
{
    if (!QDir().mkpath(QFileInfo(path).path()) || !image.save(path))
        fail(path + ": could not be written");
}

class Rendering
{
public:
    Rendering(QString const& drawings, QString const& out) : m_drawings(drawings), m_out(out) {}

    void run()
    {
        for (Kind const& kind : kinds)
            for (QString const& name : namesIn(kind))
                for (Variant const& variant : kind.variants)
                    render(kind, name, variant);
        renderThemeIcons();
        writeResourceFile();
    }

private:
    QStringList namesIn(Kind const& kind) const
    {
        QStringList names;
        QDir const folder(m_drawings.filePath(kind.folder));
        for (QString const& file : folder.entryList({"*.svg"}, QDir::Files, QDir::Name))
            names << QFileInfo(file).completeBaseName();
        if (names.isEmpty())
            fail(folder.path() + ": no drawings");
        return names;
    }

    void render(Kind const& kind, QString const& name, Variant const& variant)
    {
        QString const source = m_drawings.filePath(kind.folder + ("/" + name + ".svg"));
        QSvgRenderer drawing(coloured(contentOf(source), variant.palette));
        if (!drawing.isValid())
            fail(source + ": not a drawing");
        QSize const size = kind.side ? QSize(kind.side, kind.side) : drawing.defaultSize();
        add(rendered(drawing, size), name + variant.suffix + ".png");
        if (kind.hasDouble)
            add(rendered(drawing, size * 2), name + variant.suffix + "@2x.png");
    }

    void add(QImage const& image, QString const& file)
    {
        save(image, m_out.filePath("icons/" + file));
        m_files << file;
    }

    void renderThemeIcons() const
    {
        QSvgRenderer drawing(m_drawings.filePath("program/orbe.svg"));
        for (int const side : themeSizes) {
            QString const folder = QStringLiteral("hicolor/%1x%1/apps/orbe.png").arg(side);
            save(rendered(drawing, {side, side}), m_out.filePath(folder));
        }
    }

    void writeResourceFile() const
    {
        QByteArray text = "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n<qresource prefix=\"/icons\">\n";
        for (QString const& file : m_files)
            text += "<file>icons/" + file.toUtf8() + "</file>\n";
        text += "</qresource>\n</RCC>\n";
        QFile resources(m_out.filePath("icons.qrc"));
        if (!resources.open(QIODevice::WriteOnly) || resources.write(text) != text.size())
            fail(resources.fileName() + ": " + resources.errorString());
    }

    QDir m_drawings;
    QDir m_out;
    QStringList m_files;
};

}  // namespace

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::fputs("RenderIcons DRAWINGS OUT\n", stderr);
        return 2;
    }
    try {
        Rendering(QFile::decodeName(argv[1]), QFile::decodeName(argv[2])).run();
    } catch (std::exception const& failure) {
        std::fprintf(stderr, "RenderIcons: %s\n", failure.what());
        return 1;
    }
    return 0;
}
