.pragma library

// SVG paths of the panel's vector icons, in a 24-unit box.
var star = "M12 17.27L18.18 21l-1.64-7.03L22 9.24l-7.19-.61L12 2 9.19 8.63 2 9.24l5.46 4.73L5.82 21z";
var pin = "M16 9V4h1c.55 0 1-.45 1-1s-.45-1-1-1H7c-.55 0-1 .45-1 1s.45 1 1 1h1v5c0 1.66-1.34 3-3 3v2h5.97v7l1 1 1-1v-7H19v-2c-1.66 0-3-1.34-3-3z";

// The system symbols the update UI names, by name: a shape in the symbol's colour and, for the filled
// ones, a mark stroked over it in a contrasting colour.
var disc = "M12 2a10 10 0 1 1 0 20a10 10 0 1 1 0-20z";
var symbols = {
    "arrow.triangle.2.circlepath": {
        shape: "M4.6 10.6A7.5 7.5 0 0 1 18.5 8.2M18.5 4v4.2h-4.2M19.4 13.4A7.5 7.5 0 0 1 5.5 15.8M5.5 20v-4.2h4.2",
        filled: false
    },
    "arrow.down.circle.fill": { shape: disc, filled: true, mark: "M12 6.8v9.4M8 12.4l4 4 4-4" },
    "checkmark.circle.fill": { shape: disc, filled: true, mark: "M7.6 12.4l3 3 5.8-6.4" },
    "exclamationmark.triangle.fill": {
        shape: "M12 3.2L21.4 19.6H2.6z",
        filled: true,
        mark: "M12 9.2v4.6M12 16.6v.3"
    }
};
