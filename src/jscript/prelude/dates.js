// Dates: the forms that this language reads and writes, and their way to late-bound objects and back.
(function (global, native) {
    var hide = native.hide, NativeDate = Date, prototype = Date.prototype;
    var days = ['Sunday', 'Monday', 'Tuesday', 'Wednesday', 'Thursday', 'Friday', 'Saturday'];
    var months = ['January', 'February', 'March', 'April', 'May', 'June', 'July', 'August', 'September',
                  'October', 'November', 'December'];
    var zones = { gmt: 0, utc: 0, ut: 0, z: 0, est: -5, edt: -4, cst: -6, cdt: -5, mst: -7, mdt: -6, pst: -8,
                  pdt: -7 };

    // The place of the one word that begins with the text, of two letters at least.
    function beginning(words, text) {
        for (var i = 0; text.length > 1 && i < words.length; i++)
            if (words[i].toLowerCase().indexOf(text) === 0)
                return i;
        return -1;
    }

    // Reads "Jan 5, 2004 10:20", "1/5/2004 5:06 PM", "5 January 2004", "2004/1/5", "... GMT+0430": words and
    // numbers in nearly any order, what stands in brackets left out. Sets the fields it meets; false at
    // what it does not know.
    function readWord(word, found) {
        var month = beginning(months, word);
        if (word === 'am' || word === 'pm')
            found.half = word;
        else if (zones.hasOwnProperty(word))
            found.zone = zones[word] * 60;
        else if (month >= 0)
            found.month = month;
        else
            return beginning(days, word) >= 0;
        return true;
    }
    function readZone(sign, digits, found) {
        var number = +digits.replace(':', '');
        found.zone = (sign === '-' ? -1 : 1) * (number < 24 ? number * 60 : Math.floor(number / 100) * 60 + number % 100);
        return true;
    }
    function readNumbers(text, found) {
        var parts = text.split(/[\/-]/);
        if (parts.length === 1 && found.month !== undefined && found.day === undefined && text.length < 3)
            found.day = +text;
        else if (parts.length === 1)
            found[found.day === undefined && text.length < 3 ? 'day' : 'year'] = +text;
        else if (parts[0].length > 2) {
            found.year = +parts[0];
            found.month = parts[1] - 1;
            found.day = +parts[2];
        } else {
            found.month = parts[0] - 1;
            found.day = +parts[1];
            if (parts.length > 2)
                found.year = +parts[2];
        }
        return true;
    }
    function read(text) {
        var found = {}, match;
        var piece = /\s*(?:,|([A-Za-z]+)\.?|(\d+):(\d+)(?::(\d+)(?:\.\d+)?)?|([+-])(\d\d?:?\d*)|(\d+(?:[\/-]\d+)*)|\([^)]*\))\s*/g;
        for (var at = 0; at < text.length; at = piece.lastIndex) {
            piece.lastIndex = at;
            match = piece.exec(text);
            if (!match || match.index !== at)
                return NaN;
            if (match[1] && !readWord(match[1].toLowerCase(), found))
                return NaN;
            if (match[2])
                found.time = [+match[2], +match[3], +(match[4] || 0)];
            if (match[5] && !(found.time || found.zone !== undefined ? readZone(match[5], match[6], found)
                              : readNumbers(match[6], found)))
                return NaN;
            if (match[7])
                readNumbers(match[7], found);
        }
        return momentOf(found);
    }
    function momentOf(found) {
        if (found.year === undefined || found.month === undefined || found.day === undefined)
            return NaN;
        var time = found.time || [0, 0, 0], hour = time[0];
        if (found.half && (hour > 12 || hour === 0) || found.month > 11 || found.day > 31 || hour > 24)
            return NaN;
        if (found.half)
            hour = hour % 12 + (found.half === 'pm' ? 12 : 0);
        var year = found.year < 100 ? found.year + 1900 : found.year;
        if (found.zone === undefined)
            return new NativeDate(year, found.month, found.day, hour, time[1], time[2]).getTime();
        return NativeDate.UTC(year, found.month, found.day, hour, time[1] - found.zone, time[2]);
    }
    function parse(text) {
        text = String(text);
        var standard = /^\s*\d{4}-\d\d-\d\d(T|\s*$)/.test(text) ? NativeDate.parse(text) : NaN;
        return isNaN(standard) ? read(text) : standard;
    }

    function ScriptDate(first) {
        if (!(this instanceof ScriptDate))
            return String(new NativeDate());
        if (arguments.length === 1 && first instanceof NativeDate)
            return new NativeDate(first.getTime());
        if (arguments.length === 1 && (typeof first === 'string' || first instanceof String))
            return new NativeDate(parse(first));
        var part = Array.prototype.slice.call(arguments);
        return part.length === 0 ? new NativeDate() : new (NativeDate.bind.apply(NativeDate, [null].concat(part)))();
    }
    ScriptDate.prototype = prototype;
    hide(prototype, 'constructor', ScriptDate);
    hide(ScriptDate, 'parse', parse);
    hide(ScriptDate, 'UTC', NativeDate.UTC);
    hide(ScriptDate, 'now', NativeDate.now);
    hide(global, 'Date', ScriptDate);

    function two(number) { return number < 10 ? '0' + number : String(number); }
    function clock(hour, minute, second) { return two(hour) + ':' + two(minute) + ':' + two(second); }
    function zone(date) {
        var east = -date.getTimezoneOffset();
        if (east === 0)
            return 'UTC';
        var size = Math.abs(east);
        return 'UTC' + (east < 0 ? '-' : '+') + two(Math.floor(size / 60)) + two(size % 60);
    }
    function method(name, format) {
        hide(prototype, name, function () { return isNaN(this.getTime()) ? 'NaN' : format(this); });
    }
    function dayOf(date) { return days[date.getDay()].slice(0, 3) + ' ' + months[date.getMonth()].slice(0, 3) + ' ' + date.getDate(); }
    function timeOf(date) { return clock(date.getHours(), date.getMinutes(), date.getSeconds()) + ' ' + zone(date); }
    function localeDay(date) {
        return days[date.getDay()] + ', ' + months[date.getMonth()] + ' ' + two(date.getDate()) + ', ' + date.getFullYear();
    }
    function localeTime(date) {
        var hour = date.getHours();
        return (hour % 12 || 12) + ':' + two(date.getMinutes()) + ':' + two(date.getSeconds()) + (hour < 12 ? ' AM' : ' PM');
    }
    function utc(date) {
        return days[date.getUTCDay()].slice(0, 3) + ', ' + date.getUTCDate() + ' ' +
            months[date.getUTCMonth()].slice(0, 3) + ' ' + date.getUTCFullYear() + ' ' +
            clock(date.getUTCHours(), date.getUTCMinutes(), date.getUTCSeconds()) + ' UTC';
    }
    method('toString', function (date) { return dayOf(date) + ' ' + timeOf(date) + ' ' + date.getFullYear(); });
    method('toDateString', function (date) { return dayOf(date) + ' ' + date.getFullYear(); });
    method('toTimeString', timeOf);
    method('toLocaleString', function (date) { return localeDay(date) + ' ' + localeTime(date); });
    method('toLocaleDateString', localeDay);
    method('toLocaleTimeString', localeTime);
    method('toUTCString', utc);
    method('toGMTString', utc);
    hide(prototype, 'getYear', function () {
        var year = this.getFullYear();
        return year >= 1900 && year < 2000 ? year - 1900 : year;
    });
    hide(prototype, 'getVarDate', function () { return this; }); // dates cross as they are

    native.makeDate = function (year, month, day, hour, minute, second) {
        var date = new NativeDate(year, month, day, hour, minute, second);
        if (year < 100)
            date.setFullYear(year);
        return date;
    };
    native.dateParts = function (value) {
        if (!(value instanceof NativeDate) || isNaN(value.getTime()))
            return null;
        return [value.getFullYear(), value.getMonth(), value.getDate(), value.getHours(), value.getMinutes(),
                value.getSeconds()];
    };
})
