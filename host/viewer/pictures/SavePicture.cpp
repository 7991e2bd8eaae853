// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A file dialog, and the saver for the ending that was chosen.
#include "viewer/pictures/SavePicture.h"

#include "app/AppDelegate.h"
#include "app/ImageFile.h"
#include "app/ImageView.h"

#include <CxImageData.h>
#include <CxImageFormatManager.h>
#include <IxImageSaver.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>

namespace vistrel {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("SavePicture", text); }

QString folderKey() { return QStringLiteral("pictures/folder"); }

/// A file name like the view's title; empty when the user does not want to save.
QString askForPath(QWidget& window, const QString& title)
{
    QFileDialog dialog(&window, tr("Save picture"), QSettings().value(folderKey()).toString(),
                       tr("Pictures (*.png *.tif *.jpg *.bmp *.pnm)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("png"));
    dialog.selectFile(QFileInfo(title).completeBaseName());
    if (dialog.exec() != QDialog::Accepted)
        return {};
    QString path = dialog.selectedFiles().constFirst();
    QSettings().setValue(folderKey(), QFileInfo(path).absolutePath());
    return path;
}

} // namespace

void savePictureAs(QWidget& window, AppDelegate& delegate)
{
    const ImageView* view = delegate.imageView(delegate.activeViewId());
    // The picture at this moment: a live view goes on while the dialog is open.
    const std::unique_ptr<CxImageData> image = view ? copyOfImage(view->image()) : nullptr;
    if (!image) {
        delegate.showNotification(tr("There is no picture to save."));
        return;
    }
    const QString path = askForPath(window, view->windowTitle());
    if (path.isEmpty())
        return;
    const std::unique_ptr<IxImageSaver> saver(CxImageFormatManager::instance()->saverForFile(path));
    if (!saver || !saver->save(image.get(), 0))
        QMessageBox::warning(&window, tr("Save picture"), tr("%1 was not written.").arg(path));
}

} // namespace vistrel
