// Enumerator and VBArray: the collections and arrays of late-bound objects.
(function (global, native) {
    var slice = Array.prototype.slice, hasOwn = Object.prototype.hasOwnProperty, hide = native.hide;

    function Enumerator(collection) {
        if (!(this instanceof Enumerator))
            return new Enumerator(collection);
        hide(this, '$collection', collection);
        this.moveFirst();
    }
    function own(walk) {
        if (!(walk instanceof Enumerator && hasOwn.call(walk, '$collection')))
            native.fail(5015, 'Enumerator object expected');
        return walk;
    }
    Enumerator.prototype.atEnd = function () { return own(this).$at >= this.$items.length; };
    Enumerator.prototype.item = function () { return own(this).$items[this.$at]; };
    Enumerator.prototype.moveNext = function () { own(this).$at++; };
    Enumerator.prototype.moveFirst = function () {
        var collection = own(this).$collection;
        hide(this, '$items', Array.isArray(collection) ? slice.call(collection)
            : collection === undefined ? [] : native.elements(collection));
        hide(this, '$at', 0);
    };
    hide(global, 'Enumerator', Enumerator);

    function VBArray(array) {
        if (!(array instanceof VBArray))
            native.fail(5013, 'VBArray expected');
        return array;
    }
    function bounds(array) {
        if (!native.isArray(array))
            native.fail(5013, 'VBArray expected');
        return array.$bounds;
    }
    function bound(array, dimension) {
        dimension = dimension === undefined ? 1 : dimension | 0;
        if (dimension < 1 || dimension > bounds(array).length)
            native.fail(9, '');
        return array.$bounds[dimension - 1];
    }
    VBArray.prototype.dimensions = function () { return bounds(this).length; };
    VBArray.prototype.lbound = function (dimension) { bound(this, dimension); return 0; };
    VBArray.prototype.ubound = function (dimension) { return bound(this, dimension); };
    VBArray.prototype.toArray = function () { return bounds(this) && this.$elements.slice(); };
    VBArray.prototype.getItem = function () {
        var place = 0;
        if (arguments.length !== bounds(this).length)
            native.fail(9, '');
        for (var i = arguments.length - 1; i >= 0; i--) {
            var subscript = Math.floor(arguments[i]);
            if (!(subscript >= 0 && subscript <= this.$bounds[i]))
                native.fail(9, '');
            place = place * (this.$bounds[i] + 1) + subscript;
        }
        return this.$elements[place];
    };
    hide(global, 'VBArray', VBArray);
    native.makeArray = function (bounds, elements) {
        var array = Object.create(VBArray.prototype);
        hide(array, '$bounds', bounds);
        return hide(array, '$elements', elements);
    };
    native.isArray = function (value) { return value instanceof VBArray && hasOwn.call(value, '$elements'); };
})
