// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/text_file.h"
#include "forms/services.h"
#include "tests/support/page_server.h"
#include "tests/support/places.h"
#include "tests/support/recording_desktop.h"
#include "tests/support/wait_until.h"
#include "tests/support/window_fixture.h"
#include "updater/http_transfer.h"
#include "updater/records_page.h"
#include "updater/targets_updater_window.h"

#include <QLabel>
#include <QNetworkProxy>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <memory>
#include <string>
#include <vector>

namespace kavo::test {

inline const Message kTransferFailed{"Error"};

[[nodiscard]] inline std::string sample(const char* name)
{
    return readFile(sourceFolder() / name);
}

[[nodiscard]] inline QByteArray samplePage()
{
    return QByteArray::fromStdString(sample("tests/data/records_page.html"));
}

/// What the sample page makes of the targets.
[[nodiscard]] inline std::string sampleTargets()
{
    return sample("tests/data/records_page_targets.txt");
}

/// What a page without a marker leaves: no times, and a total of nothing.
[[nodiscard]] inline std::string targetsWithoutTimes()
{
    const QByteArrayList fixed = QByteArray::fromStdString(sample("data/targets_old.txt")).split('\n');
    std::string text;
    for (int i = 0; i < 55; ++i) text += (i == 54 ? "00:00:00," : ",") + fixed.at(i).trimmed().toStdString() + "\r\n";
    return text;
}

/// A status text, and the bar's value while it was shown.
struct ShownStatus
{
    QString text;
    int progress = 0;
    bool operator==(const ShownStatus&) const = default;
};

inline void PrintTo(const ShownStatus& shown, std::ostream* out)
{
    *out << qPrintable(shown.text) << " at " << shown.progress;
}

/// Notes every status text that was really painted.
class StatusRecord final : public QObject
{
public:
    StatusRecord(QLabel& label, QProgressBar& bar) : m_label(label), m_bar(bar) { label.installEventFilter(this); }

    [[nodiscard]] const std::vector<ShownStatus>& shown() const { return m_shown; }

    [[nodiscard]] QStringList texts() const
    {
        QStringList texts;
        for (const ShownStatus& status : m_shown) texts << status.text;
        return texts;
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        const bool isNew = m_shown.empty() || m_shown.back().text != m_label.text();
        if (event->type() == QEvent::Paint && isNew) m_shown.push_back({m_label.text(), m_bar.value()});
        return false;
    }

private:
    QLabel& m_label;
    QProgressBar& m_bar;
    std::vector<ShownStatus> m_shown;
};

/// The updater's window on a copy of the demo folder, its transfer a real one.
class UpdaterWindowTest : public ProgramTest
{
protected:
    UpdaterWindowTest()
    {
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
        session.programFolder = folder.path();
    }

    void open(const TransferLimits& limits = {})
    {
        window.reset();
        auto http = std::make_unique<HttpTransfer>(holdsAllTimes, limits);
        transfer = http.get();
        states.clear();
        QObject::connect(transfer, &Transfer::stateChanged, transfer, [this](int state) { states.push_back(state); });
        window = std::make_unique<Form7>(services, std::move(http), std::chrono::milliseconds(20), nullptr);
        status = std::make_unique<StatusRecord>(control<QLabel>(*window, "Label1"), bar());
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    /// Presses "Update!". The host may be a base address, too.
    void pressUpdate(const QString& host)
    {
        window->useRecordsHost(host.toStdString());
        click(update());
    }
    void pressUpdate(const PageServer& server) { pressUpdate(server.host()); }

    /// Waits for the end of an update: the button can be pressed again.
    void waitForEnd()
    {
        ASSERT_TRUE(waitUntil([this] { return update().isEnabled(); }));
    }

    QPushButton& update() { return control<QPushButton>(*window, "Command2"); }
    QPushButton& closeButton() { return control<QPushButton>(*window, "Command1"); }
    QProgressBar& bar() { return control<QProgressBar>(*window, "pgb"); }
    QTimer& timer1() { return control<QTimer>(*window, "Timer1"); }
    QString statusText() { return control<QLabel>(*window, "Label1").text(); }

    Session session;
    RecordingDesktop desktop;
    SystemClock clock;
    Services services{session, prompts, desktop, clock};
    Transfer* transfer = nullptr;
    std::vector<int> states;  ///< that the transfer has reported since the window was opened
    std::unique_ptr<Form7> window;
    std::unique_ptr<StatusRecord> status;
};

}  // namespace kavo::test
