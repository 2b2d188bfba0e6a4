// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/files/DocumentFiles.h"

#include <QObject>

namespace Mesh {
class GLView;
}

class ViewAppearance;

/// Keeps where the view looks from by names, with the project, and goes back there.
///
/// thread  the user interface thread
class SavedViews : public QObject
{
    Q_OBJECT

public:
    /// So many have keys.
    static constexpr int most = 9;

    /// All of them outlive this.
    SavedViews(Mesh::GLView& view, ViewAppearance& appearance, DocumentFiles& files,
               QObject* parent = nullptr);

    QStringList names() const;
    /// One that no view has yet.
    QString freeName() const;
    /// Keeps the view as it is now; one of the same name is replaced, a tenth one is not kept.
    void save(QString const& name);
    void remove(QString const& name);
    /// Looks from there again. A number that there is none of changes nothing.
    void show(int number);

signals:
    void changed();

private:
    Mesh::GLView& m_view;
    ViewAppearance& m_appearance;
    DocumentFiles& m_files;
};
