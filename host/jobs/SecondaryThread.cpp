// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/jobs/SecondaryThread.h"

#include <exception>
#include <thread>

SecondaryThread::SecondaryThread(std::function<void()> const& function)
{
    std::exception_ptr failure;
    std::thread thread([&] {
        try {
            function();
        } catch (...) {
            failure = std::current_exception();
        }
    });
    thread.join();
    if (failure)
        std::rethrow_exception(failure);
}
