#include "ui/EndRequests.h"

#include <csignal>
#include <gtest/gtest.h>
#include <poll.h>

namespace strativo {
namespace {

/// The way in which a signal is handled, put back at the end.
class Disposition {
public:
    Disposition(int handled, void (*handler)(int)) : number(handled) {
        struct sigaction action {};
        action.sa_handler = handler;
        sigaction(number, &action, &before);
    }
    ~Disposition() { sigaction(number, &before, nullptr); }
    Disposition(const Disposition&) = delete;
    Disposition& operator=(const Disposition&) = delete;

private:
    int number;
    struct sigaction before {};
};

bool IsIgnored(int number) {
    struct sigaction now {};
    sigaction(number, nullptr, &now);
    return now.sa_handler == SIG_IGN;
}

bool HasArrived(const EndRequests& requests) {
    pollfd readable = {requests.Descriptor(), POLLIN, 0};
    return poll(&readable, 1, 0) == 1;
}

class EndSignals : public testing::TestWithParam<int> {};

TEST_P(EndSignals, ArriveAtTheDescriptor) {
    const Disposition usual(GetParam(), SIG_DFL);
    const EndRequests requests;
    EXPECT_FALSE(HasArrived(requests));
    raise(GetParam());
    EXPECT_TRUE(HasArrived(requests));
}

TEST_P(EndSignals, StayIgnoredWhenTheProgramWasStartedToIgnoreThem) {
    const Disposition ignored(GetParam(), SIG_IGN);
    const EndRequests requests;
    raise(GetParam());
    EXPECT_FALSE(HasArrived(requests));
}

TEST_P(EndSignals, AreHandledAsBeforeAfterwards) {
    for (const bool wasIgnored : {false, true}) {
        const Disposition before(GetParam(), wasIgnored ? SIG_IGN : SIG_DFL);
        { const EndRequests requests; }
        EXPECT_EQ(IsIgnored(GetParam()), wasIgnored);
    }
}

INSTANTIATE_TEST_SUITE_P(All, EndSignals, testing::Values(SIGTERM, SIGHUP, SIGINT));

} // namespace
} // namespace strativo
