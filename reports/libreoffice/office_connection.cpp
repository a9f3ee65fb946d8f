// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/libreoffice/office_connection.h"

#include <com/sun/star/bridge/BridgeFactory.hpp>
#include <com/sun/star/connection/Connector.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/lang/XComponent.hpp>

#include <cppuhelper/bootstrap.hxx>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <random>
#include <rtl/bootstrap.hxx>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;
using css::uno::Reference;
using css::uno::XComponentContext;

namespace kavo {

namespace {

constexpr auto kPause = std::chrono::milliseconds(20);
constexpr auto kLongestStart = std::chrono::seconds(60);
constexpr auto kLongestHandOver = std::chrono::seconds(3);  // once the start program has ended

Reference<XComponentContext> localContext()
{
    // Without the office's own types the first call that hands a document over ends the program.
    rtl::Bootstrap::set("URE_MORE_TYPES", "<$ORIGIN/types>*");
    return cppu::defaultBootstrap_InitialComponentContext();
}

/// The start program of the office whose libraries this process has loaded.
fs::path startProgram()
{
    Dl_info library{};
    if (::dladdr(reinterpret_cast<void*>(&rtl_bootstrap_set), &library) == 0 || library.dli_fname == nullptr)
        throw std::runtime_error("the office's folder is not known");
    // The script, not the binary beside it: it sets the environment that the binary needs.
    return fs::canonical(library.dli_fname).parent_path() / "soffice";
}

bool hasDisplay()
{
    const auto isSet = [](const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

std::string uniquePipe()
{
    std::random_device random;
    std::ostringstream name;
    name << "kavo-timing-" << ::getpid() << '-' << std::hex << random() << random();
    return name.str();
}

std::vector<std::string> startArguments(const OfficeChoice& choice, const std::string& pipe)
{
    std::vector<std::string> arguments = {"--accept=pipe,name=" + pipe + ";urp", "--nodefault", "--nologo",
                                          "--norestore"};
    if (!choice.headlessProfileUrl.empty()) {
        arguments.emplace_back("--headless");
        arguments.push_back("-env:UserInstallation=" + choice.headlessProfileUrl);
    } else if (!hasDisplay()) {
        // It would start all the same and stay behind where nobody can close it.
        throw std::runtime_error("there is no display for the office");
    }
    return arguments;
}

void requireNoStop(const std::stop_token& stop)
{
    if (stop.stop_requested()) throw std::runtime_error("the start of the office was cancelled");
}

void dispose(const Reference<css::uno::XInterface>& object)
{
    try {
        const Reference<css::lang::XComponent> component(object, css::uno::UNO_QUERY);
        if (component.is()) component->dispose();
    } catch (const css::uno::Exception&) {
        // The office is gone, and the pipe with it.
    }
}

}  // namespace

OfficeConnection::OfficeConnection() : m_local(localContext()) {}

/// From here on the object is complete: what fails below ends in the destructor, too.
OfficeConnection::OfficeConnection(const OfficeChoice& choice, const std::stop_token& stop) : OfficeConnection()
{
    m_onStop.emplace(stop, [this] { cut(); });
    const std::string pipe = uniquePipe();
    const std::vector<std::string> arguments = startArguments(choice, pipe);
    requireNoStop(stop);
    m_launcher.emplace(startProgram(), arguments);
    try {
        connect(pipe, stop);
    } catch (...) {
        // Nobody would see it, or could close it, once it has started.
        if (stop.stop_requested()) endStarted();
        throw;
    }
}

OfficeConnection::~OfficeConnection()
{
    m_onStop.reset();
    m_office.clear();
    dispose(m_bridge);
    dispose(m_local);
}

void OfficeConnection::connect(const std::string& pipe, const std::stop_token& stop)
{
    using Clock = std::chrono::steady_clock;
    const auto connector = css::connection::Connector::create(m_local);
    const rtl::OUString name = rtl::OUString::createFromAscii(("pipe,name=" + pipe).c_str());
    const auto start = Clock::now();
    auto lastSeen = start;
    while (!m_pipe.is()) {
        requireNoStop(stop);
        try {
            hold(connector->connect(name));
        } catch (const css::connection::NoConnectException&) {
            const auto now = Clock::now();
            if (m_launcher->isRunning()) lastSeen = now;
            if (now - start > kLongestStart || now - lastSeen > kLongestHandOver)
                throw std::runtime_error("the office does not answer");
            std::this_thread::sleep_for(kPause);
        }
    }
    m_bridge = css::bridge::BridgeFactory::create(m_local)->createBridge({}, "urp", m_pipe, {});
    m_office.set(m_bridge->getInstance("StarOffice.ComponentContext"), css::uno::UNO_QUERY_THROW);
}

void OfficeConnection::hold(const Reference<css::connection::XConnection>& pipe)
{
    const std::lock_guard lock(m_mutex);
    m_pipe = pipe;
    if (m_isCut) m_pipe->close();
}

/// Closes the pipe under every call that waits for its answer, which may be a long time in coming.
void OfficeConnection::cut()
{
    const std::lock_guard lock(m_mutex);
    m_isCut = true;
    try {
        if (m_pipe.is()) m_pipe->close();
    } catch (const css::uno::Exception&) {
        // It was closed already.
    }
}

bool OfficeConnection::waitForEnd(std::chrono::seconds atMost)
{
    const auto end = std::chrono::steady_clock::now() + atMost;
    while (m_launcher->isRunning()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

}  // namespace kavo
