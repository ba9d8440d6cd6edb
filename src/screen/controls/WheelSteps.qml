import QtQuick

// Mouse-wheel notches as whole steps: stepped(notches) for each full notch,
// positive when the wheel rolls away from the user. A touchpad's small
// deltas add up to notches.
WheelHandler {
    id: handler

    signal stepped(int notches)

    // Wheel travel not yet making a full notch (120 units).
    property real pending: 0

    acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    target: null
    onWheel: event => {
        // A turn the other way starts afresh.
        if (handler.pending * event.angleDelta.y < 0)
            handler.pending = 0
        handler.pending += event.angleDelta.y
        const notches = handler.pending > 0 ? Math.floor(handler.pending / 120)
                                            : Math.ceil(handler.pending / 120)
        if (notches === 0)
            return
        handler.pending -= notches * 120
        handler.stepped(notches)
    }
}
