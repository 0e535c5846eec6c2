// Error objects with number and description, which this language's scripts ask for.
(function (global, native) {
    function numbered(Constructor) {
        function Numbered(number, text) {
            var isNumbered = typeof number === 'number';
            text = isNumbered ? text : number;
            var error = text === undefined ? new Constructor() : new Constructor(text);
            native.hide(error, 'number', isNumbered ? number : 0);
            return native.hide(error, 'description', text === undefined ? '' : String(text));
        }
        Numbered.prototype = Constructor.prototype;
        native.hide(Numbered.prototype, 'constructor', Numbered);
        return Numbered;
    }
    ['Error', 'EvalError', 'RangeError', 'ReferenceError', 'SyntaxError', 'TypeError', 'URIError'].forEach(
        function (name) { native.hide(global, name, numbered(global[name])); });
})
