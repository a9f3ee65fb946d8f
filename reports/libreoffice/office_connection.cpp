#include "reports/libreoffice/office_connection.h"

#include <com/sun/star/bridge/BridgeFactory.hpp>
#include <com/sun/star/bridge/UnoUrlResolver.hpp>
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

}  // namespace

OfficeConnection::OfficeConnection(const OfficeChoice& choice) : OfficeConnection(choice, uniquePipe()) {}

OfficeConnection::OfficeConnection(const OfficeChoice& choice, const std::string& pipe)
    : m_launcher(startProgram(), startArguments(choice, pipe)), m_local(localContext())
{
    connect(pipe);
}

OfficeConnection::~OfficeConnection()
{
    m_office.clear();
    try {
        const auto factory = css::bridge::BridgeFactory::create(m_local);
        for (const auto& bridge : factory->getExistingBridges())
            Reference<css::lang::XComponent>(bridge, css::uno::UNO_QUERY_THROW)->dispose();
        Reference<css::lang::XComponent>(m_local, css::uno::UNO_QUERY_THROW)->dispose();
    } catch (const css::uno::Exception&) {
        // The office is gone, and the pipe with it.
    }
}

void OfficeConnection::connect(const std::string& pipe)
{
    using Clock = std::chrono::steady_clock;
    const auto resolver = css::bridge::UnoUrlResolver::create(m_local);
    const rtl::OUString url =
        rtl::OUString::createFromAscii(("uno:pipe,name=" + pipe + ";urp;StarOffice.ComponentContext").c_str());
    const auto start = Clock::now();
    auto lastSeen = start;
    while (!m_office.is()) {
        try {
            m_office.set(resolver->resolve(url), css::uno::UNO_QUERY_THROW);
        } catch (const css::connection::NoConnectException&) {
            const auto now = Clock::now();
            if (m_launcher.isRunning()) lastSeen = now;
            if (now - start > kLongestStart || now - lastSeen > kLongestHandOver)
                throw std::runtime_error("the office does not answer");
            std::this_thread::sleep_for(kPause);
        }
    }
}

bool OfficeConnection::waitForEnd(std::chrono::seconds atMost)
{
    const auto end = std::chrono::steady_clock::now() + atMost;
    while (m_launcher.isRunning()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

}  // namespace kavo
