.pragma library

// Day keys ("2026-06-27", the user's calendar day) as the date strip and the headings write them, with
// English names whatever the locale, like every other date the panel shows.
var weekdays = ["Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"];
var months = ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"];

function parse(key) {
    const parts = String(key).split("-").map(Number);
    if (parts.length !== 3 || parts.some(isNaN))
        return null;
    return new Date(parts[0], parts[1] - 1, parts[2]);
}

function weekday(key) {
    const day = parse(key);
    return day ? weekdays[day.getDay()] : "";
}

function dayNumber(key) {
    const day = parse(key);
    return day ? String(day.getDate()) : "";
}

// "Sat, Jun 27"
function friendly(key) {
    const day = parse(key);
    return day ? weekdays[day.getDay()] + ", " + months[day.getMonth()] + " " + day.getDate() : "";
}
