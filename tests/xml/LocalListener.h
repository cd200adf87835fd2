// A socket of this machine that notes whether anybody has called.
#pragma once

#include "kit/Platform.h"

#include <winsock.h>

#include <stdexcept>
#include <string>

// The functions of the socket library, looked up where they are used, so that no other test carries it.
class Sockets
{
public:
    Sockets() : m_library(LoadLibraryW(L"ws2_32.dll"))
    {
        WSADATA data{};
        if (m_library == nullptr || Find<decltype(WSAStartup)>("WSAStartup")(MAKEWORD(2, 2), &data) != 0)
            throw std::runtime_error("no sockets");
    }
    ~Sockets()
    {
        Find<decltype(WSACleanup)>("WSACleanup")();
        FreeLibrary(m_library);
    }
    Sockets(const Sockets&) = delete;
    Sockets& operator=(const Sockets&) = delete;

    template <class Function>
    Function* Find(const char* name) const
    {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_library, name)));
    }

private:
    HMODULE m_library;
};

class Socket
{
public:
    explicit Socket(const Sockets& sockets, SOCKET handle) : m_sockets(sockets), m_handle(handle) {}
    ~Socket()
    {
        if (m_handle != INVALID_SOCKET)
            m_sockets.Find<decltype(closesocket)>("closesocket")(m_handle);
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    operator SOCKET() const { return m_handle; }

private:
    const Sockets& m_sockets;
    SOCKET m_handle;
};

// Listens on a free port of 127.0.0.1.
class LocalListener
{
public:
    LocalListener() : m_listening(m_sockets, New())
    {
        sockaddr_in address = Address(0);
        int size = sizeof address;
        u_long isNonBlocking = 1;
        const auto bind = m_sockets.Find<decltype(::bind)>("bind");
        const auto listen = m_sockets.Find<decltype(::listen)>("listen");
        const auto getsockname = m_sockets.Find<decltype(::getsockname)>("getsockname");
        const auto ioctlsocket = m_sockets.Find<decltype(::ioctlsocket)>("ioctlsocket");
        auto* const plain = reinterpret_cast<sockaddr*>(&address);
        if (bind(m_listening, plain, size) != 0 || listen(m_listening, SOMAXCONN) != 0 ||
            getsockname(m_listening, plain, &size) != 0 ||
            ioctlsocket(m_listening, static_cast<long>(FIONBIO), &isNonBlocking) != 0)
            throw std::runtime_error("cannot listen");
        m_port = m_sockets.Find<decltype(ntohs)>("ntohs")(address.sin_port);
    }

    std::string Port() const { return std::to_string(m_port); }

    // Whether somebody has connected since the last question.
    bool WasCalled()
    {
        const auto accept = m_sockets.Find<decltype(::accept)>("accept");
        const Socket caller(m_sockets, accept(m_listening, nullptr, nullptr));
        return caller != INVALID_SOCKET;
    }

    // Connects, as a parser would that fetches something.
    void Call()
    {
        const sockaddr_in address = Address(m_port);
        const Socket caller(m_sockets, New());
        const auto connect = m_sockets.Find<decltype(::connect)>("connect");
        if (connect(caller, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
            throw std::runtime_error("cannot connect");
    }

private:
    SOCKET New() const { return m_sockets.Find<decltype(socket)>("socket")(AF_INET, SOCK_STREAM, 0); }
    sockaddr_in Address(u_short port) const
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = m_sockets.Find<decltype(htons)>("htons")(port);
        address.sin_addr.s_addr = m_sockets.Find<decltype(htonl)>("htonl")(INADDR_LOOPBACK);
        return address;
    }

    Sockets m_sockets;
    Socket m_listening;
    u_short m_port = 0;
};
