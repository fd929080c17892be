// A temperature type; it doesn't check for absolute zero.
import Foundation

/* Stored in Celsius. */
struct Temperature {
    var celsius: Double

    var fahrenheit: Double {
        return celsius * 9 / 5 + 32
    }

    static func parse(_ text: String) -> Temperature? {
        guard let value = Double(text) else { return nil }
        return Temperature(celsius: value)
    }
}

let report = """
    It's \(Temperature(celsius: 21).fahrenheit) degrees.
    """
if let t = Temperature.parse("18.5") {
    print("Fahrenheit: \(t.fahrenheit)")
}
