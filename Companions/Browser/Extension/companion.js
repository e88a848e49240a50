// Tells Gleanery's native messaging host which windows and tabs this profile of the browser has, whenever the host asks.

// Chromium's manifest names one script, Firefox's names both.
globalThis.importScripts?.('windows.js');

// The form of the messages. The host refuses an extension with another number.
const version = 1;

// About the length of the texts in one message. A browser ends a host that it sends more than some megabytes at once.
const messageSize = 256 * 1024;

const firstDelay = 1000;
const longestDelay = 64 * 1000;

let port = null;
let delay = firstDelay;

// Sends the windows in messages of bearable length. A window may be divided; its parts have the same id.
async function answer(number) {
    let parts = [];
    let size = 0;
    const send = isLast => {
        port?.postMessage({answer: number, windows: parts, isLast});
        parts = [];
        size = 0;
    };
    for (const {id, type, focused, tabs} of await openWindows()) {
        parts.push({id, type, focused, tabs: ''});
        for (const lines of tabs) {
            parts.at(-1).tabs += lines;
            size += lines.length;
            if (size < messageSize)
                continue;
            send(false);
            parts.push({id, type, focused, tabs: ''});
        }
    }
    send(true);
}

async function receive(message) {
    if (message.refused !== undefined) {
        console.error(message.refused);
        delay = Infinity;
        return;
    }
    delay = firstDelay;
    try {
        await answer(message.list);
    } catch (error) {
        port?.postMessage({answer: message.list, failed: line(String(error), longestTitle)});
    }
}

// Without a host the next attempt is made later, and later each time; after a minute, only when a tab is opened.
function disconnected() {
    port = null;
    if (delay > longestDelay)
        return;
    setTimeout(connect, delay);
    delay *= 2;
}

function connect() {
    if (port !== null || delay === Infinity)
        return;
    port = api.runtime.connectNative('com.quillary.gleanery.tabs');
    port.onMessage.addListener(receive);
    port.onDisconnect.addListener(disconnected);
    port.postMessage({version});
}

// These start a service worker, which connects when it runs.
api.runtime.onStartup.addListener(connect);
api.runtime.onInstalled.addListener(connect);
api.tabs.onCreated.addListener(connect);
connect();
