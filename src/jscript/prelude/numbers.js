// Numbers and addresses: what this language reads another way, and the numbers of the failures.
(function (global, native) {
    var hide = native.hide, read = parseInt;

    // Without a base, digits behind a zero are octal.
    hide(global, 'parseInt', function parseInt(text, base) {
        text = String(text);
        return read(text, !(base | 0) && /^\s*[+-]?0\d/.test(text) ? 8 : base);
    });

    // Once its argument is converted, the function fails in one way only, beside a stack that is full (28).
    var facility = -0x7FF60000;
    function number(object, name, convert, Failing, errorNumber, description) {
        var original = object[name];
        hide(object, name, function (argument) {
            if (argument !== undefined)
                argument = convert(argument);
            try {
                return original.call(this, argument);
            } catch (error) {
                if (error instanceof Failing && error.number !== facility + 28)
                    error = new Failing(facility + errorNumber, description);
                throw error;
            }
        });
    }
    ['encodeURI', 'encodeURIComponent'].forEach(function (name) {
        number(global, name, String, URIError, 5024, 'The URI to be encoded contains an invalid character');
    });
    ['decodeURI', 'decodeURIComponent'].forEach(function (name) {
        number(global, name, String, URIError, 5025, 'The URI to be decoded is not a valid encoding');
    });
    ['toFixed', 'toExponential'].forEach(function (name) {
        number(Number.prototype, name, Number, RangeError, 5026, 'The number of fractional digits is out of range');
    });
    number(Number.prototype, 'toPrecision', Number, RangeError, 5027, 'The precision is out of range');
    ['toString', 'valueOf'].forEach(function (name) {
        number(String.prototype, name, Object, TypeError, 5005, 'String expected');
        number(Boolean.prototype, name, Object, TypeError, 5010, 'Boolean expected');
    });
})
