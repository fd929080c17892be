// A small inventory; it's kept in memory only.
package demo

/* Counts can't go below zero. */
data class Item(val name: String, var count: Int = 0)

class Inventory {
    private val items = mutableMapOf<String, Item>()

    fun add(name: String, n: Int = 1): Item {
        val item = items.getOrPut(name) { Item(name) }
        item.count += n
        return item
    }

    fun report(): String = """
        |Items: ${items.size}
        |Total: ${items.values.sumOf { it.count }}
    """.trimMargin()
}

fun main() {
    val inv = Inventory()
    inv.add("bolt", 3)
    println("bolts: ${inv.add("bolt").count}")
}
