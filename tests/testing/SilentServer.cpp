#include "tests/testing/SilentServer.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

SilentServer::SilentServer(const QByteArray& file, qsizetype spoken)
    : file_(file)
    , spoken_(spoken)
    , door_(socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in place {};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    bind(door_, reinterpret_cast<sockaddr*>(&place), sizeof place);
    listen(door_, 8);
    thread_ = std::thread([this] { Serve(); });
}

SilentServer::~SilentServer()
{
    shutdown(door_, SHUT_RDWR);
    thread_.join();
    close(door_);
}

QString SilentServer::Address() const
{
    sockaddr_in place {};
    socklen_t size = sizeof place;
    getsockname(door_, reinterpret_cast<sockaddr*>(&place), &size);
    return QStringLiteral("http://127.0.0.1:%1/film.mp4").arg(ntohs(place.sin_port));
}

void SilentServer::Serve()
{
    std::vector<int> lines;
    for (int line = accept(door_, nullptr, nullptr); line >= 0; line = accept(door_, nullptr, nullptr)) {
        Answer(line);
        lines.push_back(line);
    }
    for (const int line : lines)
        close(line);
}

void SilentServer::Answer(int line) const
{
    char request[4096];
    if (recv(line, request, sizeof request, 0) <= 0 || spoken_ == 0)
        return;
    const QByteArray reply = "HTTP/1.1 200 OK\r\nContent-Type: video/mp4\r\nContent-Length: "
        + QByteArray::number(file_.size()) + "\r\n\r\n" + file_.first(spoken_);
    for (qsizetype sent = 0; sent < reply.size();) {
        const ssize_t count =
            send(line, reply.constData() + sent, std::size_t(reply.size() - sent), MSG_NOSIGNAL);
        if (count <= 0)
            return;
        sent += count;
    }
}
