// A rotator behind Hamlib's rotctld.
#pragma once

#include "mounts/socket_mount.h"

/// One command a line, "P 123.45 67.89"; the answer is "RPRT 0", or "RPRT" and a negative number for a refusal. `p` is
/// answered by two lines, azimuth and elevation. Source: rotctld(1).
class RotctldMount final : public SocketMount
{
    Q_OBJECT

public:
    explicit RotctldMount(const MountAddress& to) : SocketMount(to) {}

    bool isBusy() const override { return !isOpen || waiting; }
    void follow(const Aim& aim) override { goTo(aim); }
    /// To a hundredth of a degree, azimuth 0 to 360; a place below the horizon becomes elevation 0.
    void goTo(const Aim& aim) override;
    void halt() override { close("S\n"); }

private:
    void greet() override;
    void listen() override;
    void take(const QByteArray& line);

    static constexpr int longestLine = 1000;
    bool isOpen = false;
    bool waiting = false;
    int numbers = 0;  // lines of a position that have come
};
