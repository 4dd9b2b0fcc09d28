// Tries to reach %HOST% in every way that a page has. What has come of each way stands in `told`;
// `over` says that nothing more is to come.
"use strict";
const told = {};
let over = false;
const http = "http://%HOST%/";
const waits = [];
/// Tries a way; one that needs time gives a promise of its outcome.
function attack(name, how) {
    try {
        const later = how();
        told[name] = "tried";
        if (later instanceof Promise)
            waits.push(later.then((text) => { told[name] = "came through: " + text; },
                () => { told[name] = "failed"; }));
    } catch (error) {
        told[name] = String(error);
    }
}
function element(name, attributes, parent) {
    const made = document.createElement(name);
    Object.assign(made, attributes);
    (parent || document.body).append(made);
    return made;
}
/// The outcome of an element that loads.
function loading(name, attributes) {
    return new Promise((resolve, reject) => {
        element(name, { onload: resolve, onerror: reject, ...attributes });
    });
}
function peers(Peer) {
    return new Promise((resolve) => {
        const peer = new Peer({ iceServers: [
            { urls: "stun:%HOST%" },
            { urls: ["turn:%HOST%?transport=tcp", "turn:%HOST%?transport=udp"],
              username: "document", credential: "text" }] });
        const other = new Peer();
        const [, port] = "%HOST%".split(":");
        const ways = ["udp 2113937151 127.0.0.1 " + port + " typ host",
            "tcp 1518280447 127.0.0.1 " + port + " typ host tcptype passive"];
        peer.createDataChannel("leak");
        peer.onicecandidate = (event) => { if (!event.candidate) resolve("gathered"); };
        (async () => {
            await peer.setLocalDescription(await peer.createOffer());
            await other.setRemoteDescription(peer.localDescription);
            await other.setLocalDescription(await other.createAnswer());
            await peer.setRemoteDescription(other.localDescription);
            for (const way of ways)
                await peer.addIceCandidate(
                    { candidate: "candidate:1 1 " + way, sdpMid: "0", sdpMLineIndex: 0 });
        })();
    });
}
function inFrame(work) {
    const frame = element("iframe", {});
    return work(window[window.length - 1], frame);
}
function worker(Kind, scope) {
    return new Promise((resolve, reject) => {
        const text = `fetch("${http}worker"); (self.postMessage ? self : 0).postMessage(1);`;
        const made = new Kind(scope.URL.createObjectURL(new scope.Blob([text])));
        made.onmessage = () => resolve("runs");
        made.onerror = reject;
    });
}
function all() {
    attack("dns prefetch", () => { element("link", { rel: "dns-prefetch", href: http }); });
    attack("preconnect", () => { element("link", { rel: "preconnect", href: http }); });
    attack("prefetch", () => loading("link", { rel: "prefetch", href: http + "prefetch" }));
    attack("preload", () => loading("link", { rel: "preload", as: "image", href: http + "pre" }));
    attack("module preload", () => loading("link", { rel: "modulepreload", href: http + "mod" }));
    attack("icon", () => { element("link", { rel: "icon", href: http + "icon" }, document.head); });
    attack("manifest", () => { element("link", { rel: "manifest", href: http + "man" }); });
    attack("style sheet", () => loading("link", { rel: "stylesheet", href: http + "css" }));
    attack("style import", () => { element("style", { textContent: `@import "${http}import"` }); });
    attack("font", () => new FontFace("f", `url(${http}font)`).load());
    attack("background", () => { document.body.style.background = `url(${http}background)`; });
    attack("image", () => loading("img", { src: http + "image" }));
    attack("script", () => loading("script", { src: http + "script" }));
    attack("module", () => import(http + "module"));
    attack("video", () => { element("video", { src: http + "video", preload: "auto" }); });
    attack("object", () => { element("object", { data: http + "object" }); });
    attack("embed", () => { element("embed", { src: http + "embed" }); });
    attack("frame", () => { element("iframe", { src: http + "frame" }); });
    attack("fetch", () => fetch(http + "fetch", { mode: "no-cors" }));
    attack("request", () => new Promise((resolve, reject) => {
        const request = new XMLHttpRequest();
        request.open("GET", http + "request");
        Object.assign(request, { onload: resolve, onerror: reject });
        request.send();
    }));
    attack("beacon", () => { navigator.sendBeacon(http + "beacon", "text"); });
    attack("ping", () => {
        element("a", { href: "#here", ping: http + "ping" }).click();
    });
    attack("socket", () => new Promise((resolve, reject) => {
        Object.assign(new WebSocket("ws://%HOST%/socket"), { onopen: resolve, onerror: reject });
    }));
    attack("event source", () => new Promise((resolve, reject) => {
        Object.assign(new EventSource(http + "events"), { onopen: resolve, onerror: reject });
    }));
    attack("worker", () => worker(Worker, window));
    attack("worker of a frame", () => inFrame((inner) => worker(inner.Worker, inner)));
    attack("shared worker", () => { new SharedWorker(`data:,fetch("${http}shared")`); });
    attack("service worker", () => navigator.serviceWorker.register("preview.htm"));
    attack("fetch of a frame", () => inFrame((inner) => inner.fetch(http + "framed")));
    attack("window", () => { window.open(http + "window").name; });
    attack("download", () => { element("a", { href: http + "load", download: "x" }).click(); });
    attack("clipboard", () => {
        if (!document.execCommand("copy"))
            throw "refused";
    });
    attack("reading the clipboard", () => navigator.clipboard.readText());
    attack("notification", () => { new Notification("text"); });
    attack("full screen", () => document.documentElement.requestFullscreen());
    attack("print", () => print());
    attack("protocol handler", () =>
        navigator.registerProtocolHandler("web+text", location.href + "?%s"));
    attack("file", () => { element("input", { type: "file" }).click(); });
    attack("peers", () => peers(RTCPeerConnection));
    attack("peers of a frame", () => inFrame((inner) => peers(inner.RTCPeerConnection)));
    attack("form", () => {
        const form = element("form", { action: http + "form", method: "post" });
        form.submit();
    });
    attack("link", () => { element("a", { href: http + "link" }).click(); });
    attack("link in a new window", () => {
        element("a", { href: http + "link", target: "_blank" }).click();
    });
    attack("mail", () => { element("a", { href: "mailto:a@b?subject=text" }).click(); });
    attack("address", () => { location.href = http + "address"; });
    Promise.all(waits).then(() => { over = true; });
}
