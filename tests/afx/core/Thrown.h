// Catches the MFC exception that a call is to throw.
#pragma once

#include <afx.h>

#include <gtest/gtest.h>

#include <memory>

struct ExceptionDeleter
{
    void operator()(CException* exception) const { exception->Delete(); }
};
template <class EXCEPTION>
using CaughtException = std::unique_ptr<EXCEPTION, ExceptionDeleter>;

// The exception of class EXCEPTION that `call` throws; fails the test and gives null if it throws none.
template <class EXCEPTION, class CALL>
CaughtException<EXCEPTION> Thrown(CALL call)
{
    try {
        call();
    } catch (EXCEPTION* e) {
        return CaughtException<EXCEPTION>(e);
    }
    ADD_FAILURE() << "nothing was thrown";
    return nullptr;
}
