// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/main/main_window.h"

#include "base/run_time_error.h"
#include "core/filters.h"
#include "core/player_names.h"
#include "core/users.h"
#include "forms/event_guard.h"
#include "forms/prompts.h"
#include "forms/screen_text.h"
#include "forms/window_painting.h"
#include "reports/spreadsheet_application.h"
#include "ui/main/popup_menu.h"
#include "ui/main/results_delegate.h"
#include "ui/main/results_header.h"
#include "ui_main_window.h"

#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

using kavo::toScreen;

namespace {

constexpr char kEmptyTableHint[] =
    "No results yet.\nF2 chooses the game's stats.txt, the right mouse button opens the menu.";

/// Tells a screen reader that this is the window that the others belong to.
QAccessibleInterface* windowFace(const QString& className, QObject* object)
{
    auto* window = className == "Form1" ? qobject_cast<QWidget*>(object) : nullptr;
    return window == nullptr ? nullptr : new QAccessibleWidget(window, QAccessible::Window);
}

std::unique_ptr<Ui::Form1> designed(QWidget* window)
{
    auto ui = std::make_unique<Ui::Form1>();
    ui->setupUi(window);
    return ui;
}

}  // namespace

Form1::Form1(const kavo::Services& services, kavo::Navigator& navigator)
    : ui(designed(this)),
      m_services(services),
      m_navigator(navigator),
      m_model(services.session),
      m_layout(*this, *ui->lv, services.session),
      m_createSpreadsheet(kavo::openSpreadsheetApplication),
      popup(std::make_unique<QMenu>("PopUp", this))
{
    QAccessible::installFactory(windowFace);
    ui->lv->setHeader(new kavo::ResultsHeader(ui->lv));
    ui->lv->header()->setSectionsClickable(true);  // which a list that does not sort has just switched off
    ui->lv->setModel(&m_model);
    ui->lv->setItemDelegate(new kavo::ResultsDelegate(this));
    popup->setObjectName("popup");
    showFontSize(kavo::kDesignedFontSize);
    kavo::buildPopupMenu(*popup, *this);
    wire();
}

Form1::~Form1() = default;

void Form1::wire()
{
    kavo::on(ui->lv->header(), &QHeaderView::sectionClicked, this, &Form1::lv_ColumnClick);  // results
    connect(ui->lv->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { m_services.session.table.selectRow(current.row() + 1); });
    ui->lv->installEventFilter(this);
    ui->lv->viewport()->installEventFilter(this);
}

void Form1::open()
{
    kavo::guarded([this] { Form_Load(); });  // the window comes whatever happens
    show();
    activateWindow();
}

void Form1::reload()
{
    if (m_isLoading) {
        m_reloadWanted = true;
        return;
    }
    Form_QueryUnload();
    Form_Load();
}

// Form: the loading sequence
void Form1::Form_Load()
{
    showLoaded(runLoading());
    while (std::exchange(m_reloadWanted, false)) {
        Form_QueryUnload();
        showLoaded(runLoading());
    }
}

kavo::LoadingResult Form1::runLoading()
{
    const QScopedValueRollback loading(m_isLoading, true);
    m_isLoaded = false;
    LayoutLoaded = false;
    m_model.markFilter({});
    if (!isVisible()) m_layout.applyDesigned();
    const int scrolled = ui->lv->verticalScrollBar()->value();
    // The position counts again once the list knows its rows.
    const auto scrollBack = qScopeGuard([this, scrolled] { ui->lv->verticalScrollBar()->setValue(scrolled); });
    forgetRow();
    const kavo::TableChange change(m_model);
    return kavo::load(m_services.session, *this);
}

/// No row is chosen while a loading shows a message; the table tells which one is afterwards.
void Form1::forgetRow()
{
    kavo::ResultsTable& table = m_services.session.table;
    const int row = table.selectedRow();
    ui->lv->selectionModel()->clear();
    table.selectRow(row);
}

void Form1::showLoaded(const kavo::LoadingResult& result)
{
    const kavo::Session& session = m_services.session;
    setWindowTitle(toScreen(session.caption));
    kavo::paintTable(*this, *ui->lv, session.colours);
    showFontSize(session.fontSize);
    m_layout.followFontAndTexts();
    showSelectedRow();
    m_isLoaded = result.end == kavo::LoadingEnd::Completed;
    if (m_isLoaded) m_layout.applyFinalPlace();
    m_layout.keepOnScreen();
    if (m_isLoaded) emit loaded();
    if (result.end == kavo::LoadingEnd::Error) {
        emit aboutToPrompt();
        m_services.prompts.tell(boxParent(), {.text = result.error, .icon = kavo::MessageIcon::Critical});
    }
}

void Form1::showFontSize(double points)
{
    constexpr double kSmallest = 1;   // points; anything smaller is no text
    constexpr double kLargest = 200;  // anything larger hides the table
    QFont font("Microsoft Sans Serif");
    font.setPointSizeF(std::clamp(points, kSmallest, kLargest));
    ui->lv->setFont(font);
}

void Form1::setFontSize(double points)
{
    m_services.session.fontSize = points;
    showFontSize(points);
    m_layout.fitChosenFont();
}

void Form1::showSelectedRow()
{
    const int row = m_services.session.table.selectedRow();
    // Selecting the totals row must not scroll the first levels away.
    ui->lv->setAutoScroll(false);
    ui->lv->setCurrentIndex(row > 0 ? m_model.index(row - 1, 0) : QModelIndex());
    ui->lv->setAutoScroll(true);
}

/// A box over a window that is not shown yet would place that window, without its frame, too early.
QWidget* Form1::boxParent()
{
    return isVisible() ? this : nullptr;
}

void Form1::showMessage(const kavo::Message& message)
{
    const kavo::TableChange::Pause pause(m_model);
    emit aboutToPrompt();
    m_services.prompts.tell(boxParent(), message);
}

kavo::AfterOptions Form1::openOptions()
{
    const kavo::TableChange::Pause pause(m_model);
    emit aboutToPrompt();
    mnuOpt_Click();
    return m_reloadWanted ? kavo::AfterOptions::Abandon : kavo::AfterOptions::GoOn;
}

void Form1::applyLayout(const std::vector<double>& values)
{
    m_layout.apply(values);
}

void Form1::layoutLoaded()
{
    LayoutLoaded = true;
}

void Form1::filter(kavo::FilterSide side, std::string_view name)
{
    reload();
    if (name.empty()) return;
    kavo::applyFilter(m_services.session.table, side, name);
    m_model.markFilter(kavo::Filter{side, std::string(name)});
    m_model.textsChanged();
}

// lv and the window: keyboard and mouse
bool Form1::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress: return Form_KeyDown(*static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress: return lv_MouseDown(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
            kavo::guarded([this] { mnuLevsStats_Click(); });
        return true;
    case QEvent::ContextMenu: return lv_ContextMenu(*static_cast<QContextMenuEvent*>(event));
    case QEvent::Paint:
        if (watched == ui->lv->viewport()) noteFirstPaint();
        if (watched == ui->lv->viewport() && m_model.rowCount() == 0) return paintEmptyTable();
        break;
    default: break;
    }
    return QWidget::eventFilter(watched, event);
}

void Form1::noteFirstPaint()
{
    if (m_isPainted) return;
    m_isPainted = true;
    QMetaObject::invokeMethod(this, &Form1::painted, Qt::QueuedConnection);
}

bool Form1::paintEmptyTable()
{
    QPainter painter(ui->lv->viewport());
    painter.setPen(ui->lv->palette().color(QPalette::Text));
    painter.drawText(ui->lv->viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, kEmptyTableHint);
    return true;
}

void Form1::keyPressEvent(QKeyEvent* event)
{
    if (!Form_KeyDown(*event)) QWidget::keyPressEvent(event);
}

bool Form1::Form_KeyDown(QKeyEvent& event)
{
    if (event.keyCombination() == (Qt::SHIFT | Qt::Key_F10)) {  // the menu key of keyboards without one
        event.accept();
        popUpAtSelectedRow();
        return true;
    }
    const kavo::MenuEntry* entry = kavo::entryOfKey(event.keyCombination());
    if (entry == nullptr) return cancelExport(event);
    event.accept();
    if (!event.isAutoRepeat()) kavo::guarded([this, entry] { (this->*entry->action)(); });
    return true;
}

/// Escape, while the spreadsheet application is waited for.
bool Form1::cancelExport(const QKeyEvent& event)
{
    if (event.key() != Qt::Key_Escape || !m_export.isAwaited()) return false;
    m_export.cancel();
    return true;
}

bool Form1::lv_MouseDown(const QMouseEvent& event)
{
    if (event.button() == Qt::RightButton) popup->popup(event.globalPosition().toPoint());
    return false;
}

bool Form1::lv_ContextMenu(const QContextMenuEvent& event)
{
    // The mouse has opened the menu at its press; the menu key opens it at the selected row.
    if (event.reason() != QContextMenuEvent::Mouse) popUpAtSelectedRow();
    return true;
}

void Form1::popUpAtSelectedRow()
{
    const QRect row = ui->lv->visualRect(ui->lv->currentIndex()).intersected(ui->lv->viewport()->rect());
    popup->popup(ui->lv->viewport()->mapToGlobal(row.isEmpty() ? QPoint() : row.bottomLeft()));
}

// lv: a click on a column header renames what it shows
void Form1::lv_ColumnClick(int section)
{
    kavo::Session& session = m_services.session;
    kavo::completeNames(session);
    const std::string oldPlayer1 = session.state.Player1Name;
    const std::string oldPlayer2 = session.state.Player2Name;
    askName(static_cast<kavo::Column>(section));
    kavo::showChangedNames(session, oldPlayer1, oldPlayer2);
    m_model.textsChanged();
    m_layout.followFontAndTexts();
    kavo::saveNames(session);
    Form_Resize();
}

void Form1::askName(kavo::Column column)
{
    std::string* name = kavo::nameOfHeader(m_services.session.state, column);
    if (name == nullptr) return;
    const bool isTeam = column == kavo::Column::Team;
    const kavo::LineQuestion ofTeam{"Change team name", "Input team name:", toScreen(*name)};
    const kavo::LineQuestion ofPlayer{"Change player name", "Input player name:", toScreen(*name)};
    const auto answer = m_services.prompts.askLine(this, isTeam ? ofTeam : ofPlayer);
    if (answer && !answer->isEmpty()) *name = kavo::fromScreen(*answer, *name);
}

// Form: place and size. They are written at every step of a resize, and flushed once, when the window closes
// or loads anew.
void Form1::saveLayout(kavo::Flush flush)
{
    try {
        m_layout.save(flush);
        m_layoutFailed = false;
    } catch (const std::exception& error) {
        // Every step of a resize comes here: the user is told once.
        if (std::exchange(m_layoutFailed, true)) return;
        m_services.prompts.tell(boxParent(), {.text = kavo::inWords(error), .icon = kavo::MessageIcon::Critical});
    }
}

void Form1::Form_Resize()
{
    if (LayoutLoaded) saveLayout(kavo::Flush::Later);
}

void Form1::Form_MouseUp()
{
    saveLayout(kavo::Flush::Later);
}

void Form1::Form_QueryUnload()
{
    saveLayout(kavo::Flush::ToDisk);
}

void Form1::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    kavo::guarded([this] { Form_Resize(); });
}

void Form1::mouseReleaseEvent(QMouseEvent* event)
{
    QWidget::mouseReleaseEvent(event);
    kavo::guarded([this] { Form_MouseUp(); });
}

void Form1::closeEvent(QCloseEvent* event)
{
    m_export.cancel();
    kavo::guarded([this] { Form_QueryUnload(); });
    event->accept();
    emit closed();
}
