// Dates that cross to late-bound objects and back.
(function (global, native) {
    native.makeDate = function (year, month, day, hour, minute, second) {
        var date = new Date(year, month, day, hour, minute, second);
        if (year < 100)
            date.setFullYear(year);
        return date;
    };
    native.dateParts = function (value) {
        if (!(value instanceof Date) || isNaN(value.getTime()))
            return null;
        return [value.getFullYear(), value.getMonth(), value.getDate(), value.getHours(), value.getMinutes(),
                value.getSeconds()];
    };
})
