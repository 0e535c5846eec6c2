// Error objects with number and description, which this language's scripts ask for.
(function (global, native) {
    function derive(name, place) {
        Object.defineProperty(Error.prototype, name, {
            configurable: true,
            get: function () { return native.known(String(this.name), String(this.message))[place]; },
            set: function (value) { native.hide(this, name, value); }
        });
    }
    function numbered(Constructor) {
        function Numbered(number, text) {
            if (typeof number !== 'number')
                return number === undefined ? new Constructor() : new Constructor(number);
            var error = text === undefined ? new Constructor() : new Constructor(text);
            native.hide(error, 'number', number);
            return native.hide(error, 'description', text === undefined ? '' : String(text));
        }
        Numbered.prototype = Constructor.prototype;
        native.hide(Numbered.prototype, 'constructor', Numbered);
        return Numbered;
    }
    derive('number', 0);
    derive('description', 1);
    ['Error', 'EvalError', 'RangeError', 'ReferenceError', 'SyntaxError', 'TypeError', 'URIError'].forEach(
        function (name) { native.hide(global, name, numbered(global[name])); });
})
