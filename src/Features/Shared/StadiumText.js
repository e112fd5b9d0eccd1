.pragma library

// How a venue's record reads on screen, the same in the list and on its own page.

// "87,523": digits grouped in threes with commas whatever the user's locale, like the panel's other
// English texts. Empty when the feed gave no capacity.
function capacity(stadium) {
    const seats = stadium.capacity;
    if (seats === undefined || seats === null)
        return "";
    return Number(seats).toLocaleString(Qt.locale("en_US"), "f", 0);
}

// "Mexico City, Mexico", leaving out whichever part the feed left empty.
function place(stadium) {
    return [stadium.cityEn, stadium.countryEn].filter(part => part.length > 0).join(", ");
}
