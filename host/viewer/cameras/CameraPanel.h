// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Everything about cameras in one dock: the list, what can be done with them, their parameters.
#pragma once

#include <QtWidgets/QWidget>

#include <array>
#include <memory>
#include <vector>

class QAction;
class QLabel;
class QRect;

namespace vistrel {

class CameraList;
class HostApplication;
class ImageView;
class LongWork;
class ParameterPanel;
struct CameraListing;

/// Its commands are for menus, too; they are enabled while they make sense. When it is first seen
/// it looks for cameras by itself.
class CameraPanel : public QWidget {
    Q_OBJECT

public:
    enum Command : std::size_t {
        Find,
        Open,
        Start,
        Stop,
        Close,
        DrawRegion,
        WholeSensor,
        SaveSettings,
        LoadSettings,
        FilterParameters,
        CommandCount
    };

    /// The host must outlive the panel.
    explicit CameraPanel(HostApplication& host, QWidget* parent = nullptr);
    ~CameraPanel() override;

    QAction* command(Command command) const { return m_commands[command]; }
    CameraList& list() { return *m_list; }
    ParameterPanel& parameters() { return *m_parameters; }
    /// What was said last about what was asked for last; empty when it went without a word.
    QString message() const;

Q_SIGNALS:
    /// Somebody wants to use the panel, which may be hidden.
    void wanted();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    using Work = void (CameraPanel::*)();

    void makeCommands();
    void makeCommand(Command command, const QString& text, const QString& help, Work work);
    QWidget* toolBar(std::initializer_list<Command> commands);
    QWidget* stacked(std::initializer_list<QWidget*> parts);
    void layOut();
    void follow();
    void followView(int id);

    void find();
    void look(bool isAsked);
    void showFound(std::vector<CameraListing> found, bool isAsked);
    void open();
    void showOpened(void* camera, const QString& error);
    void start();
    void stop();
    void close();
    void drawRegion();
    void setDrawnRegion(ImageView& view, const QRect& drawn);
    void setWholeSensor();
    void sayRegion(void* camera, const QString& refusal);
    void saveSettings();
    void loadSettings();
    void filterParameters();

    void say(const QString& text);
    void warn(const QString& text);
    void warnAsLogged();

    HostApplication& m_host;
    CameraList* m_list;
    ParameterPanel* m_parameters;
    QLabel* m_message;
    std::array<QAction*, CommandCount> m_commands{};
    std::unique_ptr<LongWork> m_work; ///< while it looks for cameras, or opens one
    bool m_hasLooked = false;
};

} // namespace vistrel
