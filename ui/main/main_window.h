// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/filters.h"
#include "core/loading.h"
#include "forms/background_task.h"
#include "forms/services.h"
#include "reports/html_export.h"
#include "reports/spreadsheet.h"
#include "ui/main/layout_keeper.h"
#include "ui/main/results_model.h"
#include "ui/navigator.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class QMenu;
class frmAbout;

namespace Ui {
class Form1;
}

/// "Kavo Timing 2.1  User: ...": the main window, one table with a row per level and a popup menu from
/// which everything else is reached.
///
/// | control | meaning                                                      |
/// |---------|--------------------------------------------------------------|
/// | lv      | the results table, nine columns                              |
/// | popup   | the menu, opened by the right mouse button (popup_menu.cpp)  |
class Form1 final : public QWidget, private kavo::LoadingHost
{
    Q_OBJECT

public:
    Form1(const kavo::Services& services, kavo::Navigator& navigator);
    ~Form1() override;

    /// Runs the loading and shows the window.
    void open();

    /// Runs the loading again in place. Asked for during a loading, it starts after that has returned.
    void reload();

    /// Shows the table in another font size (points) from now on.
    void setFontSize(double points);

    /// Reloads, then blanks the rows that do not match; an empty name is no filter.
    void filter(kavo::FilterSide side, std::string_view name);

    /// Whether the latest loading has gone through to its end.
    [[nodiscard]] bool isLoaded() const { return m_isLoaded; }

    /// Whether the table has ever been painted.
    [[nodiscard]] bool isPainted() const { return m_isPainted; }

    /// Tells in tool tips what else is known of player 1's times.
    void tellOfTimes(kavo::TimeNote note) { m_model.tellOfTimes(std::move(note)); }

    /// Puts another spreadsheet application in place of the platform's.
    void setSpreadsheet(kavo::CreateSpreadsheet create) { m_createSpreadsheet = std::move(create); }

    /// Another host for the world-records page; an empty text is the default one.
    void useRecordsHost(std::string host) { m_recordsHost = std::move(host); }

    // Menu entries and keys (table: popup_menu.cpp, what they do: main_window_menu.cpp)
    void mnuUpTargets_Click();
    void mnuBUGs_Click();
    void mnuOpt_Click();
    void mnuFont_Click();
    void mnuStats_Click();
    void mnuLevsStats_Click();
    void mnuHTML_Click();
    void mnuExport_Click();
    void mnuTextExport_Click();
    void mnuRefresh_Click();
    void mnuChangeUser_Click();
    void mnuLinks_Click();
    void mnuAbout_Click();

signals:
    /// A loading has gone through to its end, and the table shows it.
    void loaded();

    /// The table has been painted for the first time.
    void painted();

    /// A box is about to be shown while the window loads.
    void aboutToPrompt();

    void closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void wire();

    // The loading, and what it asks of the window
    void Form_Load();
    kavo::LoadingResult runLoading();
    void showLoaded(const kavo::LoadingResult& result);
    void showFontSize(double points);
    void forgetRow();
    void showSelectedRow();
    QWidget* boxParent();
    void showMessage(const kavo::Message& message) override;
    [[nodiscard]] kavo::AfterOptions openOptions() override;
    void applyLayout(const std::vector<double>& values) override;
    void layoutLoaded() override;

    // Window layout
    void saveLayout(kavo::Flush flush);
    void Form_Resize();
    void Form_MouseUp();
    void Form_QueryUnload();

    // Keyboard, mouse and column headers
    bool Form_KeyDown(QKeyEvent& event);
    bool lv_MouseDown(const QMouseEvent& event);
    bool cancelExport(const QKeyEvent& event);
    bool lv_ContextMenu(const QContextMenuEvent& event);
    void popUpAtSelectedRow();
    void noteFirstPaint();
    bool paintEmptyTable();
    void lv_ColumnClick(int section);
    void askName(kavo::Column column);

    std::unique_ptr<Ui::Form1> ui;
    kavo::Services m_services;
    kavo::Navigator& m_navigator;
    kavo::ResultsModel m_model;
    kavo::LayoutKeeper m_layout;
    kavo::CreateSpreadsheet m_createSpreadsheet;
    kavo::BackgroundTask m_export;  ///< to the spreadsheet application
    kavo::HtmlReports m_htmlReports;
    std::string m_recordsHost;  ///< empty for the default one
    std::unique_ptr<QMenu> popup;
    bool LayoutLoaded = false;  ///< from then on resizing is the user's and is kept
    bool m_isLoading = false;
    bool m_reloadWanted = false;
    bool m_layoutFailed = false;  ///< told once, not at every step of a resize
    bool m_isLoaded = false;
    bool m_isPainted = false;
    QString m_statisticsCaption;  ///< of the statistics window from its second opening on
    QPointer<frmAbout> m_about;   ///< there is one at most
};
