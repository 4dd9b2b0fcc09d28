#pragma once

#include "platform/xml/dom/dom.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace quillon::xml::test {

inline DOMDocument40 parsed(const std::string &text) {
    DOMDocument40 document = DOMDocument40::create();
    EXPECT_TRUE(document.loadXML(QByteArray::fromStdString(text)))
        << text.substr(0, 200) << ": " << document.parseError().reason.toStdString();
    return document;
}

inline std::string xml(const Node &node) {
    return node.xml().toStdString();
}
inline std::string xml(const DOMDocument40 &document) {
    return document.xml().toStdString();
}

/// Files of one test, in a folder that goes with it.
class Files {
public:
    QString path(const QString &name) const { return folder_.filePath(name); }
    QString write(const QString &name, const std::string &bytes) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), qint64(bytes.size()));
        return path(name);
    }
    std::string read(const QString &name) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }
    QStringList names() const {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

private:
    QTemporaryDir folder_;
};

/// Loads and saves bytes; gives the saved bytes.
inline std::string reloaded(const Files &files, const std::string &bytes) {
    DOMDocument40 document = DOMDocument40::create();
    EXPECT_TRUE(document.load(files.write("in.xml", bytes)))
        << document.parseError().reason.toStdString() << "\n"
        << bytes.substr(0, 300);
    document.save(files.path("out.xml"));
    return files.read("out.xml");
}

inline QString q(const std::string &utf8) {
    return QString::fromStdString(utf8);
}

/// A server on this machine that answers nobody and knows whether somebody has called.
class Listener {
public:
    Listener() {
        EXPECT_EQ(::bind(socket_, asAny(), sizeof address_), 0);
        EXPECT_EQ(::listen(socket_, 1), 0);
        socklen_t size = sizeof address_;
        EXPECT_EQ(::getsockname(socket_, asAny(), &size), 0);
    }
    ~Listener() { ::close(socket_); }
    Listener(const Listener &) = delete;
    Listener &operator=(const Listener &) = delete;

    std::string url(const std::string &name) const {
        return "http://127.0.0.1:" + std::to_string(ntohs(address_.sin_port)) + "/" + name;
    }
    bool wasCalled() const {
        pollfd calls{socket_, POLLIN, 0};
        return ::poll(&calls, 1, 0) != 0;
    }

private:
    sockaddr *asAny() { return reinterpret_cast<sockaddr *>(&address_); }

    int socket_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address_{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
};

} // namespace quillon::xml::test
