// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The panel's commands for a camera's region and for its settings as a whole.
#include "app/HostApplication.h"
#include "app/ImageView.h"
#include "app/LiveStream.h"
#include "cameras/CameraFeatures.h"
#include "viewer/cameras/CameraList.h"
#include "viewer/cameras/CameraPanel.h"
#include "viewer/cameras/DrawnRegion.h"
#include "viewer/cameras/ParameterPanel.h"

#include <CxCameraParameters.h>

#include <QtCore/QFileInfo>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>

namespace vistrel {

namespace {

/// Empty when nobody chose one.
QString chosenFile(QWidget* parent, const QString& title, QFileDialog::AcceptMode mode)
{
    QFileDialog dialog(parent, title, QString(), CameraPanel::tr("Camera settings (*.json)"));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                       : QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QStringLiteral("json"));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}

void tellWhatIsMissing(QWidget* parent, const QString& path, const QStringList& lines)
{
    constexpr qsizetype mostShown = 12;
    QMessageBox box(QMessageBox::Warning, CameraPanel::tr("Load settings"),
                    CameraPanel::tr("%n setting(s) in %1 could not be set:\n\n%2", nullptr,
                                    static_cast<int>(lines.size()))
                        .arg(QFileInfo(path).fileName(), lines.mid(0, mostShown).join(u'\n')),
                    QMessageBox::Ok, parent);
    if (lines.size() > mostShown)
        box.setDetailedText(lines.join(u'\n'));
    box.exec();
}

} // namespace

void CameraPanel::drawRegion()
{
    ImageView* const view = m_host.delegate().liveView(m_list->currentCamera());
    if (!view)
        return;
    m_host.delegate().activateView(view->id());
    // Until it is drawn another camera may become the current one.
    view->drawRectangle(this, [this, view](const QRect& drawn) { setDrawnRegion(*view, drawn); });
    const QString request = tr("Draw the region in the picture. Escape leaves it as it is.");
    say(request);
    const auto endRequest = [this, request] {
        if (message() == request)
            say({});
    };
    connect(view, &ImageView::rectangleModeChanged, this, endRequest, Qt::SingleShotConnection);
}

void CameraPanel::setDrawnRegion(ImageView& view, const QRect& drawn)
{
    void* const camera = view.stream()->camera();
    CxCameraParameters* const parameters = m_host.cameras().cameraParameters(camera);
    if (!parameters)
        return warn(tr("The region was not set: the camera is not open any more."));
    const QString mover = elementThatMovesPixels(view.chain());
    const QRect region =
        regionOnSensor(drawn, view.pictureSize(), parameters->currentROIRectParams());
    if (!mover.isEmpty())
        warn(tr("The view's chain moves pixels: switch %1 off to draw a region.").arg(mover));
    else if (region.isEmpty())
        warn(tr("What was drawn is no part of what the camera sends."));
    else
        sayRegion(camera, m_host.cameras().features(camera)->setRegion(region).reason);
}

// The list may not have noticed yet that a script has closed the camera.
void CameraPanel::setWholeSensor()
{
    void* const camera = m_list->currentCamera();
    if (CameraFeatures* const features = m_host.cameras().features(camera))
        sayRegion(camera, features->setWholeSensor().reason);
}

// The camera has its own steps, so that its user is told what the region has become.
void CameraPanel::sayRegion(void* camera, const QString& refusal)
{
    m_parameters->refreshSoon();
    if (!refusal.isEmpty())
        return warn(tr("The region was not set: %1.").arg(refusal));
    const QRect region = m_host.cameras().cameraParameters(camera)->currentROIRectParams();
    say(tr("The camera sends %1 x %2 pixels from (%3, %4) on.")
            .arg(region.width())
            .arg(region.height())
            .arg(region.x())
            .arg(region.y()));
}

// The camera may be lost while its user looks for a file.
void CameraPanel::saveSettings()
{
    const QString path = chosenFile(this, tr("Save settings"), QFileDialog::AcceptSave);
    CxCameraParameters* parameters = m_host.cameras().cameraParameters(m_list->currentCamera());
    if (path.isEmpty() || !parameters)
        return;
    if (parameters->saveParamValuesToFile(path, CxCameraParam::Guru))
        say(tr("The settings were saved to %1.").arg(path));
    else
        warnAsLogged();
}

void CameraPanel::loadSettings()
{
    const QString path = chosenFile(this, tr("Load settings"), QFileDialog::AcceptOpen);
    CxCameraParameters* parameters = m_host.cameras().cameraParameters(m_list->currentCamera());
    if (path.isEmpty() || !parameters)
        return;
    QStringList lines;
    const bool isRead =
        parameters->loadParamValuesFromFile(path, CxCameraParam::Guru, &lines, true);
    m_parameters->refreshSoon();
    if (!isRead)
        return warn(lines.join(u'\n'));
    say(lines.isEmpty() ? tr("The settings in %1 were set.").arg(path)
                        : tr("Some of the settings in %1 were set.").arg(path));
    if (!lines.isEmpty())
        tellWhatIsMissing(this, path, lines);
}

} // namespace vistrel
