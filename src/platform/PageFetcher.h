#pragma once

#include <QString>
#include <chrono>

// Fetches the text of a web page. The update check gets its pages through this, so that it
// can be run against any server, or none.
class PageFetcher {
public:
    virtual ~PageFetcher() = default;

    // The page's text, or an empty text when it could not be had for any reason.
    virtual QString fetch(const QString& address) = 0;
};

// A plain HTTP GET. While it waits it keeps the event loop turning, so the window stays
// responsive even when the vendor's server is slow; it gives up after its time-out.
class HttpPageFetcher : public PageFetcher {
public:
    static constexpr quint16 DefaultPort = 80;
    static constexpr std::chrono::milliseconds DefaultTimeout{10000};

    HttpPageFetcher() = default;
    // Only tests use another port or a shorter wait; the program always asks port 80.
    HttpPageFetcher(quint16 port, std::chrono::milliseconds timeout);

    QString fetch(const QString& address) override;

private:
    quint16 port_ = DefaultPort;
    std::chrono::milliseconds timeout_ = DefaultTimeout;
};
