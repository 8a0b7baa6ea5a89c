#include "desktop/SessionManager.h"

#include "desktop/Gui.h"

#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>
#include <X11/SM/SMlib.h>
#include <chrono>
#include <cstdlib>
#include <poll.h>
#include <stdexcept>
#include <vector>

namespace strativo {

namespace {

enum class Step { none, logOut, cancel };

// The library hands no object to all of its callbacks. Only the serving thread uses the first
// three.
std::vector<SmsConn> programs;
std::vector<IceConn> connections;
bool loggingOut = false;
std::atomic<Step> wanted = Step::none;
std::atomic<int> saved = 0; ///< counts the times a program said that it is

Status Register(SmsConn program, SmPointer, char* previousId) {
    if (previousId != nullptr)
        return 0;
    SmsRegisterClientReply(program, SmsGenerateClientID(program));
    SmsSaveYourself(program, SmSaveLocal, False, SmInteractStyleNone, False);
    programs.push_back(program);
    return 1;
}

void NoteSaved(SmsConn program, SmPointer, Bool) {
    if (!loggingOut) // else the answer is the end of the program or of the log-out
        SmsSaveComplete(program);
    ++saved;
}

void Forget(SmsConn program, SmPointer, int count, char** reasons) {
    std::erase(programs, program);
    SmFreeReasons(count, reasons);
    SmsCleanUp(program);
}

void IgnoreProperties(SmsConn, SmPointer, int count, SmProp** properties) {
    for (int i = 0; i < count; ++i)
        SmFreeProperty(properties[i]);
    std::free(properties);
}

void IgnoreNames(SmsConn, SmPointer, int count, char** names) {
    for (int i = 0; i < count; ++i)
        std::free(names[i]);
    std::free(names);
}

void GiveNoProperties(SmsConn program, SmPointer) {
    SmsReturnProperties(program, 0, nullptr);
}

/// What each program may ask of its session manager.
Status Welcome(SmsConn, SmPointer, unsigned long* mask, SmsCallbacks* callbacks, char**) {
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask
            | SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask
            | SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask
            | SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    callbacks->register_client.callback = Register;
    callbacks->interact_request.callback = [](SmsConn program, SmPointer, int) {
        SmsInteract(program);
    };
    callbacks->interact_done.callback = [](SmsConn, SmPointer, Bool) {};
    callbacks->save_yourself_request.callback = [](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {
    };
    callbacks->save_yourself_phase2_request.callback = [](SmsConn program, SmPointer) {
        SmsSaveYourselfPhase2(program);
    };
    callbacks->save_yourself_done.callback = NoteSaved;
    callbacks->close_connection.callback = Forget;
    callbacks->set_properties.callback = IgnoreProperties;
    callbacks->delete_properties.callback = IgnoreNames;
    callbacks->get_properties.callback = GiveNoProperties;
    return 1;
}

Bool TrustEverybody(char*) {
    return True;
}

void Accept(IceListenObj listening) {
    IceAcceptStatus status = IceAcceptSuccess;
    IceConn connection = IceAcceptConnection(listening, &status);
    while (connection != nullptr && IceConnectionStatus(connection) == IceConnectPending)
        IceProcessMessages(connection, nullptr, nullptr);
    if (connection != nullptr)
        connections.push_back(connection);
}

void TakeStep(Step step) {
    if (step != Step::none)
        loggingOut = step == Step::logOut;
    for (SmsConn program : programs)
        if (step == Step::logOut)
            SmsSaveYourself(program, SmSaveBoth, True, SmInteractStyleAny, False);
        else if (step == Step::cancel)
            SmsShutdownCancelled(program);
}

/// When a program is killed, its end of the connection goes too.
void TakeMessages(std::size_t index) {
    IceConn connection = connections[index];
    const IceProcessMessagesStatus status = IceProcessMessages(connection, nullptr, nullptr);
    if (status == IceProcessMessagesSuccess)
        return;
    connections.erase(connections.begin() + static_cast<std::ptrdiff_t>(index));
    if (status != IceProcessMessagesIOError)
        return;
    std::erase_if(programs, [connection](SmsConn program) {
        return SmsGetIceConnection(program) == connection;
    });
    IceCloseConnection(connection);
}

void ServeOnce(const std::vector<IceListenObj>& places) {
    constexpr int pause = 10; // ms
    std::vector<pollfd> wires;
    for (IceListenObj place : places)
        wires.push_back({IceGetListenConnectionNumber(place), POLLIN, 0});
    for (IceConn connection : connections)
        wires.push_back({IceConnectionNumber(connection), POLLIN, 0});
    poll(wires.data(), wires.size(), pause);
    for (std::size_t i = wires.size(); i-- > places.size();)
        if (wires[i].revents != 0)
            TakeMessages(i - places.size());
    for (std::size_t i = 0; i < places.size(); ++i)
        if (wires[i].revents != 0)
            Accept(places[i]);
    TakeStep(wanted.exchange(Step::none));
}

} // namespace

SessionManager::SessionManager() {
    char error[256] = {};
    int count = 0;
    IceListenObj* listening = nullptr;
    programs.clear();
    connections.clear();
    loggingOut = false;
    IceSetIOErrorHandler([](IceConn) {});
    SmsInitialize("Stories", "1", Welcome, nullptr, TrustEverybody, sizeof error, error);
    if (IceListenForConnections(&count, &listening, sizeof error, error) == 0)
        throw std::runtime_error(error);
    const std::vector<IceListenObj> places(listening, listening + count);
    for (IceListenObj place : places)
        IceSetHostBasedAuthProc(place, TrustEverybody);
    setenv("SESSION_MANAGER", IceComposeNetworkIdList(count, listening), 1);
    server = std::thread([this, places, count, listening] {
        while (!over)
            ServeOnce(places);
        IceFreeListenObjs(count, listening);
    });
}

SessionManager::~SessionManager() {
    over = true;
    server.join();
    unsetenv("SESSION_MANAGER");
}

bool SessionManager::PrepareLogOut() {
    const auto end = std::chrono::steady_clock::now() + patience;
    const int before = saved;
    wanted = Step::logOut;
    while (saved == before && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return saved > before;
}

void SessionManager::CancelLogOut() {
    wanted = Step::cancel;
    while (wanted != Step::none)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

} // namespace strativo
