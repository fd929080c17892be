// Reads a config file; it's an error if the file doesn't exist.
use std::collections::HashMap;
use std::fs;

/* Keys are kept in lower case. */
#[derive(Debug, Default)]
pub struct Config<'a> {
    name: &'a str,
    values: HashMap<String, String>,
}

impl<'a> Config<'a> {
    pub fn load(name: &'a str) -> Result<Self, std::io::Error> {
        let text = fs::read_to_string(name)?;
        let mut values = HashMap::new();
        for line in text.lines() {
            if let Some((k, v)) = line.split_once('=') {
                values.insert(k.trim().to_lowercase(), v.trim().to_string());
            }
        }
        Ok(Config { name, values })
    }
}

fn main() {
    let pattern = r#"a "quoted" key"#;
    match Config::load("demo.conf") {
        Ok(c) => println!("{} keys in {}", c.values.len(), c.name),
        Err(e) => eprintln!("cannot read: {e} ({pattern})"),
    }
}
